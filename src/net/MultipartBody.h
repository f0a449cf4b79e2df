// The body of a multipart/form-data request: text fields and at most one file, in one block of memory.
//
// The text around the file is a function of its arguments alone. The file is read once, straight to its place in a
// block that has the body's final size from the beginning: an archive is never in memory twice.
#pragma once

#include <windows.h>

#include <cstddef>
#include <memory>
#include <string>

#include "net/ParameterMap.h"

namespace crashvane {

// 27 hyphens and two numbers of the C library's generator, the first one drawn first, as 8 hexadecimal digits each.
std::wstring MakeBoundary();

// Whether every name may stand in a part's head: not empty, characters 32 to 127 without the double quote.
bool AreNamesValid(const ParameterMap& Parameters);

struct UploadFile {
    std::wstring strPath;      // empty: no file part; goes on the wire as it stands
    std::wstring strPartName;  // form field of the file part
};

// The body is head, the file's bytes (none without a file), tail.
struct MultipartText {
    std::string strHead;
    std::string strTail;
};

// False: the boundary or the file's path converts to nothing.
bool FormMultipartText(const std::wstring& strBoundary, const ParameterMap& Parameters, const UploadFile& File,
                       MultipartText& Text);

class MultipartBody {
  public:
    // False: as above, or the file cannot be read whole or is empty, or the body would not fit a 32-bit length.
    // Throws when there is no memory for it.
    bool Build(const std::wstring& strBoundary, const ParameterMap& Parameters, const UploadFile& File);

    [[nodiscard]] char* Data() { return m_pBytes.get(); }
    [[nodiscard]] DWORD Size() const { return m_dwSize; }

  private:
    std::unique_ptr<char[]> m_pBytes;
    DWORD m_dwSize = 0;
};

}  // namespace crashvane
