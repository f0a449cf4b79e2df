#include "net/MultipartBody.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <cwchar>
#include <initializer_list>
#include <limits>
#include <string_view>

#include "net/Utf8.h"
#include "util/Handles.h"

namespace crashvane {
namespace {

constexpr const wchar_t* BOUNDARY_PREFIX = L"---------------------------";
constexpr std::size_t BOUNDARY_SIZE = 44;  // prefix, 16 digits, terminator
constexpr unsigned long long MAX_BODY = (std::numeric_limits<DWORD>::max)();

void Append(std::string& strText, std::initializer_list<std::string_view> Pieces) {
    for (const std::string_view strPiece : Pieces) {
        strText += strPiece;
    }
}

void AppendField(std::string& strText, std::string_view strBoundary, std::string_view strName,
                 std::string_view strValue) {
    Append(strText, {"--", strBoundary, "\r\n", "Content-Disposition: form-data; name=\"", strName, "\"\r\n\r\n",
                     strValue, "\r\n"});
}

void AppendFileHead(std::string& strText, std::string_view strBoundary, std::string_view strName,
                    std::string_view strPath) {
    Append(strText, {"--", strBoundary, "\r\n", "Content-Disposition: form-data; name=\"", strName, "\"; filename=\"",
                     strPath, "\"\r\n", "Content-Type: application/octet-stream\r\n", "\r\n"});
}

// A file opened for reading and its size.
class InputFile {
  public:
    // False: cannot be opened, is nothing that has a size, or is empty.
    bool Open(const std::wstring& strPath) {
        LARGE_INTEGER Size = {};
        m_hFile.Reset(CreateFileW(strPath.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, FILE_FLAG_SEQUENTIAL_SCAN, nullptr));
        if (!m_hFile || SetFilePointerEx(m_hFile.Get(), {}, &Size, FILE_END) == FALSE ||
            SetFilePointerEx(m_hFile.Get(), {}, nullptr, FILE_BEGIN) == FALSE || Size.QuadPart <= 0) {
            return false;
        }
        m_uSize = static_cast<unsigned long long>(Size.QuadPart);
        return true;
    }

    // False: fewer bytes than the size said, since the file has shrunk or a read failed.
    bool Read(char* pBytes) {
        DWORD dwRead = 0;
        return ReadFile(m_hFile.Get(), pBytes, static_cast<DWORD>(m_uSize), &dwRead, nullptr) != FALSE &&
               dwRead == m_uSize;
    }

    [[nodiscard]] unsigned long long Size() const { return m_uSize; }

  private:
    FileHandle m_hFile;
    unsigned long long m_uSize = 0;
};

}  // namespace

std::wstring MakeBoundary() {
    // Two calls in one argument list would be made in no certain order.
    const int nFirst = std::rand();
    const int nSecond = std::rand();
    wchar_t szBoundary[BOUNDARY_SIZE] = {};
    _snwprintf(szBoundary, BOUNDARY_SIZE - 1, L"%s%08X%08X", BOUNDARY_PREFIX, nFirst, nSecond);
    return szBoundary;
}

bool AreNamesValid(const ParameterMap& Parameters) {
    return std::all_of(Parameters.begin(), Parameters.end(), [](const ParameterMap::value_type& Parameter) {
        const std::wstring& strName = Parameter.first;
        return !strName.empty() && std::all_of(strName.begin(), strName.end(),
                                               [](wchar_t cAt) { return cAt >= 32 && cAt <= 127 && cAt != L'"'; });
    });
}

bool FormMultipartText(const std::wstring& strBoundary, const ParameterMap& Parameters, const UploadFile& File,
                       MultipartText& Text) {
    const std::string strBoundaryUtf8 = ToUtf8(strBoundary);
    if (strBoundaryUtf8.empty()) {
        return false;
    }
    Text.strHead.clear();
    for (const auto& [strName, strValue] : Parameters) {
        AppendField(Text.strHead, strBoundaryUtf8, ToUtf8(strName), ToUtf8(strValue));
    }
    if (!File.strPath.empty()) {
        const std::string strPathUtf8 = ToUtf8(File.strPath);
        if (strPathUtf8.empty()) {
            return false;
        }
        AppendFileHead(Text.strHead, strBoundaryUtf8, ToUtf8(File.strPartName), strPathUtf8);
    }
    // The line end belongs to the file; without one it leaves an empty line, which servers have come to expect.
    Text.strTail.clear();
    Append(Text.strTail, {"\r\n", "--", strBoundaryUtf8, "--\r\n"});
    return true;
}

bool MultipartBody::Build(const std::wstring& strBoundary, const ParameterMap& Parameters, const UploadFile& File) {
    MultipartText Text;
    InputFile Input;
    if (!FormMultipartText(strBoundary, Parameters, File, Text) ||
        (!File.strPath.empty() && !Input.Open(File.strPath))) {
        return false;
    }
    const unsigned long long uTexts = Text.strHead.size() + Text.strTail.size();
    if (Input.Size() > MAX_BODY || uTexts > MAX_BODY - Input.Size()) {
        return false;
    }
    m_dwSize = static_cast<DWORD>(uTexts + Input.Size());
    // Not a string or vector: those would fill the block with zeros before the file is read into it.
    m_pBytes = std::make_unique_for_overwrite<char[]>(m_dwSize);
    std::memcpy(m_pBytes.get(), Text.strHead.data(), Text.strHead.size());
    std::memcpy(m_pBytes.get() + m_dwSize - Text.strTail.size(), Text.strTail.data(), Text.strTail.size());
    return File.strPath.empty() || Input.Read(m_pBytes.get() + Text.strHead.size());
}

}  // namespace crashvane
