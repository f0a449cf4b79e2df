#include "zip/Output.h"

#include <windows.h>

namespace crashvane {

bool FileOutput::Create(const std::string& strPath) {
    constexpr DWORD ShareWithNobody = 0;
    m_hFile.Reset(CreateFileA(strPath.c_str(), GENERIC_WRITE, ShareWithNobody, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr));
    return static_cast<bool>(m_hFile);
}

std::size_t FileOutput::Write(const void* pData, std::size_t uSize) {
    DWORD dwWritten = 0;
    // A failed write counts too, as far as it came.
    WriteFile(m_hFile.Get(), pData, static_cast<DWORD>(uSize), &dwWritten, nullptr);
    return dwWritten;
}

bool FileOutput::Position(std::uint64_t& uPosition) {
    LARGE_INTEGER Now = {};
    const bool bKnown = SetFilePointerEx(m_hFile.Get(), LARGE_INTEGER{}, &Now, FILE_CURRENT) != FALSE;
    uPosition = static_cast<std::uint64_t>(Now.QuadPart);
    return bKnown;
}

bool FileOutput::Seek(std::uint64_t uPosition) {
    LARGE_INTEGER To = {};
    To.QuadPart = static_cast<LONGLONG>(uPosition);
    return SetFilePointerEx(m_hFile.Get(), To, nullptr, FILE_BEGIN) != FALSE;
}

bool FileOutput::Truncate(std::uint64_t uPosition) {
    return Seek(uPosition) && SetEndOfFile(m_hFile.Get()) != FALSE;
}

}  // namespace crashvane
