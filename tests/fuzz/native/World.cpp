#include "native/World.h"

#include <algorithm>
#include <cctype>

namespace native {
namespace {

std::string KeyOf(const std::string& strPath) {
    std::string strKey = strPath;
    for (char& cByte : strKey) {
        cByte = cByte == '/' ? '\\' : static_cast<char>(std::tolower(static_cast<unsigned char>(cByte)));
    }
    while (strKey.size() > 3 && strKey.back() == '\\') {
        strKey.pop_back();
    }
    return strKey;
}

}  // namespace

World& TheWorld() {
    static World Instance;
    return Instance;
}

void ResetWorld() {
    TheWorld() = World();
}

File& MakeFile(const std::string& strPath, const std::string& strBytes) {
    File& Made = TheWorld().Files[KeyOf(strPath)];
    Made = File();
    Made.strPath = strPath;
    Made.strBytes = strBytes;
    return Made;
}

File& MakeFolder(const std::string& strPath) {
    File& Made = MakeFile(strPath, std::string());
    Made.bFolder = true;
    Made.dwAttributes = FILE_ATTRIBUTE_DIRECTORY;
    return Made;
}

File* FindFile(const std::string& strPath) {
    const auto Found = TheWorld().Files.find(KeyOf(strPath));
    return Found != TheWorld().Files.end() ? &Found->second : nullptr;
}

}  // namespace native

using native::TheWorld;

DWORD GetLastError() {
    return TheWorld().dwLastError;
}
void SetLastError(DWORD dwError) {
    TheWorld().dwLastError = dwError;
}
void GetLocalTime(SYSTEMTIME* pTime) {
    *pTime = TheWorld().Now;
}
DWORD GetTickCount() {
    return 1;
}
DWORD GetCurrentThreadId() {
    return TheWorld().dwThread;
}
HWND GetDesktopWindow() {
    return nullptr;
}

DWORD FormatMessageA(DWORD, const void*, DWORD, DWORD, char*, DWORD, void*) {
    return 0;
}
void* LocalFree(void*) {
    return nullptr;
}
HRSRC FindResourceExA(HMODULE, const char*, const char*, WORD) {
    return nullptr;
}
HRSRC FindResourceA(HMODULE, const char*, const char*) {
    return nullptr;
}
HGLOBAL LoadResource(HMODULE, HRSRC) {
    return nullptr;
}
void* LockResource(HGLOBAL) {
    return nullptr;
}
DWORD SizeofResource(HMODULE, HRSRC) {
    return 0;
}
BOOL FreeLibrary(HMODULE) {
    return TRUE;
}

namespace {

constexpr std::int64_t TicksPerSecond = 10'000'000;
constexpr std::int64_t DaysFrom1601 = 584'694;  // to 1601-01-01 from the first of March of year 0

// Days since 1601-01-01 of a date in the proleptic Gregorian calendar, counted in years that begin in March.
std::int64_t DaysOf(std::int64_t nYear, std::int64_t nMonth, std::int64_t nDay) {
    const std::int64_t nMarchYear = nMonth > 2 ? nYear : nYear - 1;
    const std::int64_t nMarchMonth = (nMonth + 9) % 12;
    return nMarchYear * 365 + nMarchYear / 4 - nMarchYear / 100 + nMarchYear / 400 + (nMarchMonth * 153 + 2) / 5 +
           nDay - 1 - DaysFrom1601;
}

}  // namespace

BOOL FileTimeToSystemTime(const FILETIME* pFileTime, SYSTEMTIME* pTime) {
    const std::uint64_t uTicks = (std::uint64_t{pFileTime->dwHighDateTime} << 32) | pFileTime->dwLowDateTime;
    if (uTicks > INT64_MAX) {
        return FALSE;
    }
    const auto nSeconds = static_cast<std::int64_t>(uTicks) / TicksPerSecond;
    const std::int64_t nDays = nSeconds / 86400;
    std::int64_t nYear = 1601 + nDays / 366;
    while (DaysOf(nYear + 1, 1, 1) <= nDays) {
        ++nYear;
    }
    std::int64_t nMonth = 1;
    while (nMonth < 12 && DaysOf(nYear, nMonth + 1, 1) <= nDays) {
        ++nMonth;
    }
    pTime->wYear = static_cast<WORD>(nYear);
    pTime->wMonth = static_cast<WORD>(nMonth);
    pTime->wDay = static_cast<WORD>(nDays - DaysOf(nYear, nMonth, 1) + 1);
    pTime->wDayOfWeek = static_cast<WORD>((nDays + 1) % 7);
    pTime->wHour = static_cast<WORD>(nSeconds / 3600 % 24);
    pTime->wMinute = static_cast<WORD>(nSeconds / 60 % 60);
    pTime->wSecond = static_cast<WORD>(nSeconds % 60);
    pTime->wMilliseconds = static_cast<WORD>(uTicks / 10000 % 1000);
    return TRUE;
}

BOOL SystemTimeToFileTime(const SYSTEMTIME* pTime, FILETIME* pFileTime) {
    const std::int64_t nSeconds = DaysOf(pTime->wYear, pTime->wMonth, pTime->wDay) * 86400 + pTime->wHour * 3600 +
                                  pTime->wMinute * 60 + pTime->wSecond;
    const auto uTicks = static_cast<std::uint64_t>(nSeconds * TicksPerSecond + pTime->wMilliseconds * 10000);
    pFileTime->dwLowDateTime = static_cast<DWORD>(uTicks);
    pFileTime->dwHighDateTime = static_cast<DWORD>(uTicks >> 32);
    return TRUE;
}
