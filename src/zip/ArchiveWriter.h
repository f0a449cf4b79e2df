// The state of one archive being written: what lies in the file so far, and the entries its directory will name.
//
// Takes any output; memory that runs out while an entry begins is ZipNoFile, and nothing of it is written.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "zip/ArchiveStream.h"
#include "zip/EntryData.h"
#include "zip/ZipRecords.h"
#include "zip/ZipResult.h"

namespace crashvane {

// What 32-bit offsets and 16-bit counts hold. The whole archive is kept within it, directory and end included.
struct ArchiveLimits {
    std::uint64_t uBytes = 0xFFFFFFFF;
    std::size_t uEntries = 0xFFFF;
};

class ArchiveWriter {
  public:
    explicit ArchiveWriter(std::unique_ptr<Output> pOutput, const ArchiveLimits& Limits = ArchiveLimits(),
                           alloc_func pfnAllocate = nullptr, free_func pfnFree = nullptr);

    // Adds one file under a name that need not be its own.
    ZipResult Add(const std::string& strSource, const std::string& strNameInArchive);

    // Writes the directory and closes the output; ZipOk or ZipWriteError. Once: a second call changes nothing.
    ZipResult Finish();

  private:
    ZipResult Begin(EntryRecord& Entry, SourceFile& Source, const std::string& strSource, const std::string& strName);
    [[nodiscard]] bool Fits(const EntryRecord& Entry) const;
    [[nodiscard]] std::int64_t RoomForData(const EntryRecord& Entry) const;
    ZipResult WriteEntry(EntryRecord& Entry, SourceFile& Source);
    ZipResult CompleteHeader(EntryRecord& Entry);
    ZipResult AppendDescriptor(const EntryRecord& Entry, std::uint32_t uAnnouncedSize);
    bool WriteDirectory();

    const ArchiveLimits m_Limits;
    ArchiveStream m_Archive;
    EntryData m_Data;
    std::vector<EntryRecord> m_Entries;
    std::uint64_t m_uDirectorySize = 0;  // that the entries will take
    ZipResult m_Failed = ZipOk;          // stays, once an add has spoiled the archive
    bool m_bEnded = false;
};

}  // namespace crashvane
