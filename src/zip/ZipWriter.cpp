#include "zip/ZipWriter.h"

#include <memory>
#include <new>
#include <utility>

#include "util/Files.h"
#include "util/Paths.h"
#include "zip/Output.h"
#include "zip/ZipHandle.h"

namespace crashvane::ZipWriter {
namespace {

unsigned uLastResult = ZipOk;

unsigned Remember(unsigned uResult) {
    uLastResult = uResult;
    return uResult;
}

// Adds under the name that is given, or under the source's own.
int Add(ZipArchive* pArchive, const std::string& strSource, const std::string* pstrName) {
    if (pArchive == nullptr || !FileExists(strSource)) {
        return 0;
    }
    unsigned uResult = ZipWrongMode;
    if (IsWriting(pArchive)) {
        try {
            uResult = pArchive->pWriter->Add(strSource, pstrName != nullptr ? *pstrName : FileNameOf(strSource));
        } catch (const std::bad_alloc&) {
            uResult = ZipNoFile;
        }
    }
    return Remember(uResult) == ZipOk ? 1 : 0;
}

}  // namespace

ZipArchive* CreateArchive(const std::string& strPath) {
    std::unique_ptr<ZipArchive> pArchive;
    try {
        auto pOutput = std::make_unique<FileOutput>();
        FileOutput& File = *pOutput;
        pArchive = std::make_unique<ZipArchive>();
        pArchive->pWriter = std::make_unique<ArchiveWriter>(std::move(pOutput));
        // The file comes last: memory that runs out leaves none behind.
        if (!File.Create(strPath)) {
            pArchive.reset();
        }
    } catch (const std::bad_alloc&) {
        pArchive.reset();
    }
    Remember(pArchive ? ZipOk : ZipNoFile);
    return pArchive.release();
}

int AddFile(ZipArchive* pArchive, const std::string& strSource, const std::string& strNameInArchive) {
    return Add(pArchive, strSource, &strNameInArchive);
}

int AddFile(ZipArchive* pArchive, const std::string& strSource) {
    return Add(pArchive, strSource, nullptr);
}

unsigned Close(ZipArchive* pArchive) {
    if (pArchive == nullptr) {
        return Remember(ZipBadArgs);
    }
    if (!IsWriting(pArchive)) {
        return Remember(ZipWrongMode);
    }
    const std::unique_ptr<ZipArchive> pOwned(pArchive);
    return Remember(pOwned->pWriter->Finish());
}

unsigned LastResult() {
    return uLastResult;
}

bool IsWriting(const ZipArchive* pArchive) {
    return pArchive != nullptr && pArchive->uKind == ZipKindWriting;
}

}  // namespace crashvane::ZipWriter
