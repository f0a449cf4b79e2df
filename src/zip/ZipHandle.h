// What a handle points to. Internal to the writer and its tests.
#pragma once

#include <memory>

#include "zip/ArchiveWriter.h"

namespace crashvane {

enum ZipKind : unsigned {
    ZipKindWriting = 2,  // the only kind there is
};

struct ZipArchive {
    unsigned uKind = ZipKindWriting;
    std::unique_ptr<ArchiveWriter> pWriter;
};

}  // namespace crashvane
