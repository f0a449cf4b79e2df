// Files by handle and by number, and the search for files by name, over the files of the world.
#include <direct.h>
#include <io.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <memory>

#include "native/World.h"

using native::File;
using native::FindFile;
using native::TheWorld;

namespace {

struct OpenFile {
    File* pFile = nullptr;
    std::uint64_t uAt = 0;
};

struct Search {
    std::vector<const File*> Found;
    std::size_t uNext = 0;
};

OpenFile* ToFile(HANDLE hFile) {
    return static_cast<OpenFile*>(hFile);
}

std::uint64_t SizeOf(const File& Of) {
    return Of.strBytes.size() + Of.uHidden;
}

FILETIME ToFileTime(native::Ticks uTicks) {
    return {static_cast<DWORD>(uTicks), static_cast<DWORD>(uTicks >> 32)};
}

// What may still be written of uSize bytes; the disk has that much less room then.
std::size_t TakeRoom(std::size_t uSize) {
    std::int64_t& nRoom = TheWorld().nDiskRoom;
    const std::size_t uTaken = std::min<std::uint64_t>(uSize, static_cast<std::uint64_t>(nRoom));
    nRoom -= static_cast<std::int64_t>(uTaken);
    return uTaken;
}

template <typename Facts>
void FillFacts(const File& Of, Facts* pFacts) {
    pFacts->dwFileAttributes = Of.dwAttributes;
    pFacts->ftCreationTime = ToFileTime(Of.uCreated);
    pFacts->ftLastAccessTime = ToFileTime(Of.uAccessed);
    pFacts->ftLastWriteTime = ToFileTime(Of.uWritten);
    pFacts->nFileSizeHigh = static_cast<DWORD>(SizeOf(Of) >> 32);
    pFacts->nFileSizeLow = static_cast<DWORD>(SizeOf(Of));
}

char Lower(char cByte) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(cByte)));
}

// "*" stands for any characters, and nothing else is special.
bool Matches(const char* pszName, const char* pszPattern) {
    if (*pszPattern == '*') {
        return Matches(pszName, pszPattern + 1) || (*pszName != '\0' && Matches(pszName + 1, pszPattern));
    }
    if (*pszName == '\0' || *pszPattern == '\0') {
        return *pszName == *pszPattern;
    }
    return Lower(*pszName) == Lower(*pszPattern) && Matches(pszName + 1, pszPattern + 1);
}

std::string FolderOf(const std::string& strPath) {
    const std::size_t uAt = strPath.find_last_of("\\/");
    return uAt != std::string::npos ? strPath.substr(0, uAt) : std::string();
}

}  // namespace

HANDLE CreateFileA(const char* pszPath, DWORD, DWORD, void*, DWORD dwCreation, DWORD, HANDLE) {
    File* pFile = FindFile(pszPath);
    if (dwCreation == CREATE_ALWAYS && (pFile == nullptr || !pFile->bFolder) && !TheWorld().bNoFiles) {
        pFile = &native::MakeFile(pszPath, std::string());
    } else if (dwCreation == CREATE_ALWAYS || pFile == nullptr || pFile->bFolder) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    return new OpenFile{pFile};
}

HANDLE CreateFileW(const wchar_t* pszPath, DWORD dwAccess, DWORD dwShare, void* pSecurity, DWORD dwCreation,
                   DWORD dwFlags, HANDLE hTemplate) {
    std::string strPath(std::wcslen(pszPath) * 4, '\0');
    const int nLength = WideCharToMultiByte(CP_UTF8, 0, pszPath, static_cast<int>(std::wcslen(pszPath)), strPath.data(),
                                            static_cast<int>(strPath.size()), nullptr, nullptr);
    strPath.resize(static_cast<std::size_t>(nLength));
    return CreateFileA(strPath.c_str(), dwAccess, dwShare, pSecurity, dwCreation, dwFlags, hTemplate);
}

BOOL CloseHandle(HANDLE hFile) {
    delete ToFile(hFile);
    return TRUE;
}

BOOL ReadFile(HANDLE hFile, void* pBuffer, DWORD dwWanted, DWORD* pdwRead, void*) {
    OpenFile& Open = *ToFile(hFile);
    const std::string& strBytes = Open.pFile->strBytes;
    const std::uint64_t uLeft = Open.uAt < strBytes.size() ? strBytes.size() - Open.uAt : 0;
    *pdwRead = 0;
    if (Open.pFile->bUnreadable) {
        return FALSE;
    }
    *pdwRead = static_cast<DWORD>(std::min<std::uint64_t>(dwWanted, uLeft));
    std::memcpy(pBuffer, strBytes.data() + std::min<std::uint64_t>(Open.uAt, strBytes.size()), *pdwRead);
    Open.uAt += *pdwRead;
    return TRUE;
}

BOOL WriteFile(HANDLE hFile, const void* pBytes, DWORD dwSize, DWORD* pdwWritten, void*) {
    OpenFile& Open = *ToFile(hFile);
    std::string& strBytes = Open.pFile->strBytes;
    *pdwWritten = static_cast<DWORD>(TakeRoom(dwSize));
    strBytes.resize(std::max<std::uint64_t>(strBytes.size(), Open.uAt + *pdwWritten));
    std::memcpy(strBytes.data() + Open.uAt, pBytes, *pdwWritten);
    Open.uAt += *pdwWritten;
    return *pdwWritten == dwSize ? TRUE : FALSE;
}

BOOL SetFilePointerEx(HANDLE hFile, LARGE_INTEGER Distance, LARGE_INTEGER* pPosition, DWORD dwFrom) {
    OpenFile& Open = *ToFile(hFile);
    const std::uint64_t uFrom = dwFrom == FILE_BEGIN ? 0 : dwFrom == FILE_CURRENT ? Open.uAt : SizeOf(*Open.pFile);
    // Asking where one stands is no seek.
    const bool bMoves = dwFrom != FILE_CURRENT || Distance.QuadPart != 0;
    if (bMoves && TheWorld().nSeeksThatWork-- <= 0) {
        TheWorld().nSeeksThatWork = 0;
        return FALSE;
    }
    Open.uAt = uFrom + static_cast<std::uint64_t>(Distance.QuadPart);
    if (pPosition != nullptr) {
        pPosition->QuadPart = static_cast<LONGLONG>(Open.uAt);
    }
    return TRUE;
}

BOOL SetEndOfFile(HANDLE hFile) {
    OpenFile& Open = *ToFile(hFile);
    Open.pFile->strBytes.resize(Open.uAt);
    return TRUE;
}

DWORD GetFileType(HANDLE) {
    return FILE_TYPE_DISK;
}

BOOL GetFileInformationByHandle(HANDLE hFile, BY_HANDLE_FILE_INFORMATION* pFacts) {
    FillFacts(*ToFile(hFile)->pFile, pFacts);
    return TRUE;
}

HANDLE FindFirstFileExA(const char* pszSearch, int, WIN32_FIND_DATAA* pData, int, void*, DWORD) {
    const std::string strSearch = pszSearch;
    const std::string strFolder = FolderOf(strSearch);
    const File* pFolder = FindFile(strFolder);
    if (pFolder == nullptr || !pFolder->bFolder) {
        SetLastError(ERROR_PATH_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    auto pSearch = std::make_unique<Search>();
    for (const auto& [strKey, Each] : TheWorld().Files) {
        const std::string strParent = FolderOf(Each.strPath);
        const std::string strName = Each.strPath.substr(strParent.size() + (strParent.empty() ? 0 : 1));
        if (FindFile(strParent) == pFolder && strName.size() < MAX_PATH &&
            Matches(strName.c_str(), pszSearch + strFolder.size() + 1)) {
            pSearch->Found.push_back(&Each);
        }
    }
    if (FindNextFileA(pSearch.get(), pData) == FALSE) {
        SetLastError(ERROR_FILE_NOT_FOUND);
        return INVALID_HANDLE_VALUE;
    }
    return pSearch.release();
}

BOOL FindNextFileA(HANDLE hFind, WIN32_FIND_DATAA* pData) {
    auto* pSearch = static_cast<Search*>(hFind);
    if (pSearch->uNext == pSearch->Found.size()) {
        return FALSE;
    }
    const File& Found = *pSearch->Found[pSearch->uNext++];
    FillFacts(Found, pData);
    std::strcpy(pData->cFileName, PathFindFileNameA(Found.strPath.c_str()));
    return TRUE;
}

BOOL FindClose(HANDLE hFind) {
    delete static_cast<Search*>(hFind);
    return TRUE;
}

int _mkdir(const char* pszFolder) {
    if (FindFile(pszFolder) != nullptr) {
        errno = EEXIST;
        return -1;
    }
    if (TheWorld().bNoFolders) {
        errno = EACCES;
        return -1;
    }
    native::MakeFolder(pszFolder);
    return 0;
}

namespace {

constexpr int FirstNumber = 100;
std::map<int, std::string> g_OpenNumbers;

}  // namespace

int _sopen(const char* pszPath, int, int, int) {
    const File* pOld = FindFile(pszPath);
    const File* pFolder = FindFile(FolderOf(pszPath));
    if (TheWorld().bNoFiles || pFolder == nullptr || !pFolder->bFolder || (pOld != nullptr && pOld->bFolder)) {
        errno = EACCES;
        return -1;
    }
    native::MakeFile(pszPath, std::string());
    const int nFile = FirstNumber + static_cast<int>(g_OpenNumbers.size());
    g_OpenNumbers[nFile] = pszPath;
    return nFile;
}

int _write(int nFile, const void* pBytes, unsigned uSize) {
    const auto* pText = static_cast<const char*>(pBytes);
    if (nFile == 1 || nFile == 2) {
        (nFile == 1 ? TheWorld().strStandardOutput : TheWorld().strStandardError).append(pText, uSize);
        return static_cast<int>(uSize);
    }
    File* pFile = g_OpenNumbers.contains(nFile) ? FindFile(g_OpenNumbers[nFile]) : nullptr;
    const std::size_t uTaken = pFile != nullptr ? TakeRoom(uSize) : 0;
    if (uTaken == 0) {
        errno = pFile != nullptr ? ENOSPC : EBADF;
        return -1;
    }
    pFile->strBytes.append(pText, uTaken);
    return static_cast<int>(uTaken);
}

int _close(int nFile) {
    return g_OpenNumbers.erase(nFile) == 1 ? 0 : -1;
}
