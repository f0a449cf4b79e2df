// What tests do to the files that become entries.
#pragma once

#include <windows.h>
#include <winioctl.h>

#include <cstdint>
#include <string>

#include "util/Handles.h"

namespace crashvane::test {

// Opened by somebody else: for writing, shared with everybody unless dwShare says otherwise.
inline FileHandle OpenByOther(const std::string& strPath,
                              DWORD dwShare = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE) {
    return FileHandle(
        CreateFileA(strPath.c_str(), GENERIC_READ | GENERIC_WRITE, dwShare, nullptr, OPEN_EXISTING, 0, nullptr));
}

// Of seconds since 1970.
inline FILETIME TimeOf(std::int64_t nUnix) {
    const auto uTicks = static_cast<std::uint64_t>(nUnix * 10000000 + 116444736000000000);
    return {static_cast<DWORD>(uTicks), static_cast<DWORD>(uTicks >> 32)};
}

// The creation time becomes that of the last write. Under Wine nobody can set it, but there it is never later.
inline void SetTimes(const std::string& strPath, std::int64_t nModified, std::int64_t nAccessed) {
    const FILETIME Modified = TimeOf(nModified);
    const FILETIME Accessed = TimeOf(nAccessed);
    SetFileTime(OpenByOther(strPath).Get(), &Modified, &Accessed, &Modified);
}

// Seconds since 1970.
inline std::uint32_t CreationTime(const std::string& strPath) {
    FILETIME Created = {};
    GetFileTime(OpenByOther(strPath).Get(), &Created, nullptr, nullptr);
    const std::uint64_t uTicks = (std::uint64_t{Created.dwHighDateTime} << 32) | Created.dwLowDateTime;
    return static_cast<std::uint32_t>(uTicks / 10000000 - 11644473600);
}

// Cuts or extends; what is new reads as zeros and takes no place on the disk.
inline void SetSize(const std::string& strPath, std::uint64_t uSize) {
    const FileHandle hFile = OpenByOther(strPath);
    LARGE_INTEGER To = {};
    DWORD dwIgnored = 0;
    To.QuadPart = static_cast<LONGLONG>(uSize);
    DeviceIoControl(hFile.Get(), FSCTL_SET_SPARSE, nullptr, 0, nullptr, 0, &dwIgnored, nullptr);
    SetFilePointerEx(hFile.Get(), To, nullptr, FILE_BEGIN);
    SetEndOfFile(hFile.Get());
}

// The same bytes on every machine, and no compressor makes them smaller.
inline std::string Noise(std::size_t uSize) {
    std::string strResult(uSize, '\0');
    std::uint64_t uState = 88172645463325252U;
    for (char& cByte : strResult) {
        uState ^= uState << 13;
        uState ^= uState >> 7;
        uState ^= uState << 17;
        cByte = static_cast<char>(uState >> 32);
    }
    return strResult;
}

}  // namespace crashvane::test
