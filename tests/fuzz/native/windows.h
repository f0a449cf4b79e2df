// What the fuzzed code needs of Windows, on the machine that fuzzes it: the names of the platform's headers, over files
// in memory, a clock that stands, and a scripted server (World.h).
//
// A stand-in, not the platform: it knows the calls that the code makes and the answers that matter to it. Characters
// of wide texts are UTF-16 code units although wchar_t has 32 bits here. The code page of narrow texts is one where
// every byte is one character of the same number; which bytes count as lead bytes is the world's choice.
#pragma once

#include <strings.h>

#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cwchar>

using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = std::uint32_t;
using LONG = std::int32_t;
using ULONGLONG = unsigned long long;
using LONGLONG = long long;
using BOOL = int;
using HANDLE = void*;
using HMODULE = void*;
using HRSRC = void*;
using HGLOBAL = void*;
using HWND = void*;

constexpr BOOL FALSE = 0;
constexpr BOOL TRUE = 1;
constexpr std::size_t MAX_PATH = 260;
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(static_cast<std::intptr_t>(-1)))

constexpr DWORD ERROR_FILE_NOT_FOUND = 2;
constexpr DWORD ERROR_PATH_NOT_FOUND = 3;
constexpr DWORD ERROR_INSUFFICIENT_BUFFER = 122;
DWORD GetLastError();
void SetLastError(DWORD dwError);

// Times.
struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};
struct SYSTEMTIME {
    WORD wYear, wMonth, wDayOfWeek, wDay, wHour, wMinute, wSecond, wMilliseconds;
};
union LARGE_INTEGER {
    LONGLONG QuadPart;
};
union ULARGE_INTEGER {
    struct {
        DWORD LowPart;
        DWORD HighPart;
    };
    ULONGLONG QuadPart;
};
void GetLocalTime(SYSTEMTIME* pTime);
BOOL FileTimeToSystemTime(const FILETIME* pFileTime, SYSTEMTIME* pTime);
BOOL SystemTimeToFileTime(const SYSTEMTIME* pTime, FILETIME* pFileTime);
DWORD GetTickCount();
DWORD GetCurrentThreadId();
HWND GetDesktopWindow();

// Files by handle.
constexpr DWORD GENERIC_READ = 0x80000000;
constexpr DWORD GENERIC_WRITE = 0x40000000;
constexpr DWORD FILE_SHARE_READ = 1;
constexpr DWORD FILE_SHARE_WRITE = 2;
constexpr DWORD CREATE_ALWAYS = 2;
constexpr DWORD OPEN_EXISTING = 3;
constexpr DWORD FILE_FLAG_SEQUENTIAL_SCAN = 0x08000000;
constexpr DWORD FILE_ATTRIBUTE_READONLY = 0x01;
constexpr DWORD FILE_ATTRIBUTE_HIDDEN = 0x02;
constexpr DWORD FILE_ATTRIBUTE_SYSTEM = 0x04;
constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
constexpr DWORD FILE_ATTRIBUTE_ARCHIVE = 0x20;
constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;
constexpr DWORD FILE_BEGIN = 0;
constexpr DWORD FILE_CURRENT = 1;
constexpr DWORD FILE_END = 2;
constexpr DWORD FILE_TYPE_DISK = 1;
struct BY_HANDLE_FILE_INFORMATION {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime, ftLastAccessTime, ftLastWriteTime;
    DWORD nFileSizeHigh, nFileSizeLow;
};
HANDLE CreateFileA(const char* pszPath, DWORD dwAccess, DWORD dwShare, void* pSecurity, DWORD dwCreation, DWORD dwFlags,
                   HANDLE hTemplate);
HANDLE CreateFileW(const wchar_t* pszPath, DWORD dwAccess, DWORD dwShare, void* pSecurity, DWORD dwCreation,
                   DWORD dwFlags, HANDLE hTemplate);
BOOL CloseHandle(HANDLE hFile);
BOOL ReadFile(HANDLE hFile, void* pBuffer, DWORD dwWanted, DWORD* pdwRead, void* pOverlapped);
BOOL WriteFile(HANDLE hFile, const void* pBytes, DWORD dwSize, DWORD* pdwWritten, void* pOverlapped);
BOOL SetFilePointerEx(HANDLE hFile, LARGE_INTEGER Distance, LARGE_INTEGER* pPosition, DWORD dwFrom);
BOOL SetEndOfFile(HANDLE hFile);
DWORD GetFileType(HANDLE hFile);
BOOL GetFileInformationByHandle(HANDLE hFile, BY_HANDLE_FILE_INFORMATION* pFacts);

// Files by name.
struct WIN32_FIND_DATAA {
    DWORD dwFileAttributes;
    FILETIME ftCreationTime, ftLastAccessTime, ftLastWriteTime;
    DWORD nFileSizeHigh, nFileSizeLow;
    char cFileName[MAX_PATH];
};
constexpr int FindExInfoStandard = 0;
constexpr int FindExSearchNameMatch = 0;
HANDLE FindFirstFileExA(const char* pszSearch, int nLevel, WIN32_FIND_DATAA* pData, int nSearch, void* pFilter,
                        DWORD dwFlags);
BOOL FindNextFileA(HANDLE hFind, WIN32_FIND_DATAA* pData);
BOOL FindClose(HANDLE hFind);
BOOL PathFileExistsA(const char* pszPath);
BOOL PathIsDirectoryA(const char* pszPath);
char* PathCombineA(char* pszResult, const char* pszFolder, const char* pszName);
char* PathFindFileNameA(const char* pszPath);
DWORD GetCurrentDirectoryA(DWORD dwSize, char* pszPath);
DWORD GetModuleFileNameA(HMODULE hModule, char* pszPath, DWORD dwSize);

// Settings files.
DWORD GetPrivateProfileStringA(const char* pszSection, const char* pszKey, const char* pszDefault, char* pszValue,
                               DWORD dwSize, const char* pszFile);
UINT GetPrivateProfileIntA(const char* pszSection, const char* pszKey, int nDefault, const char* pszFile);

// Texts.
constexpr UINT CP_ACP = 0;
constexpr UINT CP_UTF8 = 65001;
int WideCharToMultiByte(UINT uCodePage, DWORD dwFlags, const wchar_t* pszWide, int nWide, char* pszNarrow, int nNarrow,
                        const char* pszDefault, BOOL* pbUsedDefault);
int MultiByteToWideChar(UINT uCodePage, DWORD dwFlags, const char* pszNarrow, int nNarrow, wchar_t* pszWide, int nWide);
BOOL IsDBCSLeadByte(BYTE cByte);
BOOL IsDBCSLeadByteEx(UINT uCodePage, BYTE cByte);

// No messages, no resources, no libraries here: the code takes that for a system that has none.
constexpr DWORD FORMAT_MESSAGE_ALLOCATE_BUFFER = 0x100;
constexpr DWORD FORMAT_MESSAGE_FROM_SYSTEM = 0x1000;
constexpr DWORD FORMAT_MESSAGE_IGNORE_INSERTS = 0x200;
DWORD FormatMessageA(DWORD dwFlags, const void* pSource, DWORD dwMessage, DWORD dwLanguage, char* pszBuffer,
                     DWORD dwSize, void* pArguments);
void* LocalFree(void* pMemory);
HRSRC FindResourceExA(HMODULE hModule, const char* pszType, const char* pszName, WORD wLanguage);
HRSRC FindResourceA(HMODULE hModule, const char* pszName, const char* pszType);
HGLOBAL LoadResource(HMODULE hModule, HRSRC hResource);
void* LockResource(HGLOBAL hResource);
DWORD SizeofResource(HMODULE hModule, HRSRC hResource);
BOOL FreeLibrary(HMODULE hLibrary);

// One thread: nothing to lock.
struct CRITICAL_SECTION {};
inline void InitializeCriticalSection(CRITICAL_SECTION*) {}
inline void EnterCriticalSection(CRITICAL_SECTION*) {}
inline void LeaveCriticalSection(CRITICAL_SECTION*) {}

// The C runtime of Windows: its formats (%I64u, %p as 16 upper-case digits, %s of a wide format is wide) and its
// numbers, which wrap round.
int _vsnprintf(char* pszBuffer, std::size_t uCount, const char* pszFormat, std::va_list Arguments);
int _snprintf(char* pszBuffer, std::size_t uCount, const char* pszFormat, ...);
int _vscprintf(const char* pszFormat, std::va_list Arguments);
int _vsnwprintf(wchar_t* pszBuffer, std::size_t uCount, const wchar_t* pszFormat, std::va_list Arguments);
int _snwprintf(wchar_t* pszBuffer, std::size_t uCount, const wchar_t* pszFormat, ...);
int _snscanf(const char* pszText, std::size_t uSize, const char* pszFormat, ...);
int _wtoi(const wchar_t* pszText);
char* _fullpath(char* pszResult, const char* pszPath, std::size_t uSize);
inline int _stricmp(const char* pszLeft, const char* pszRight) {
    return strcasecmp(pszLeft, pszRight);
}
inline int _fseeki64(std::FILE* pFile, long long nAt, int nFrom) {
    return fseeko(pFile, nAt, nFrom);
}
inline long long _ftelli64(std::FILE* pFile) {
    return ftello(pFile);
}
