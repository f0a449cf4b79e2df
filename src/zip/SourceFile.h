// A file on disk that becomes an entry: opened, examined, read.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

#include "util/Handles.h"
#include "zip/ZipRecords.h"
#include "zip/ZipResult.h"

namespace crashvane {

// The size of a source that was not examined.
inline constexpr std::uint32_t UnknownSize = 0xFFFFFFFF;

class SourceFile {
  public:
    // Shared for reading and writing with everybody else. ZipNoFile: cannot be opened, is no file on a disk, or has
    // 4 GiB or more.
    ZipResult Open(const std::string& strPath);

    // Puts size, attributes and times into the entry and leaves the read position at the start. ZipNoFile.
    ZipResult Examine(EntryRecord& Entry);

    // False: reading failed. Nothing read: the file's end.
    bool Read(void* pBuffer, std::uint32_t uWanted, std::uint32_t& uRead);

  private:
    bool ReadAt(std::uint64_t uAt, void* pBuffer, std::uint32_t uWanted, std::uint32_t& uRead);
    bool TestExecutable(bool& bExecutable);

    FileHandle m_hFile;
    BY_HANDLE_FILE_INFORMATION m_Facts = {};  // of the moment it was opened
};

// What stands in for a source's own facts: an ordinary file of unknown size, of now (local time, taken as if it were
// UTC).
void AssumeFacts(EntryRecord& Entry);

}  // namespace crashvane
