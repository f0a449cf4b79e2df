// Path rules of the platform, as far as the paths of the fuzzed code reach: drives, separators, "." and "..".
#include <cstring>

#include "native/World.h"

using native::FindFile;
using native::TheWorld;

namespace {

bool IsSeparator(char cByte) {
    return cByte == '\\' || cByte == '/';
}

bool HasDrive(const std::string& strPath) {
    return strPath.size() > 1 && strPath[1] == ':';
}

std::vector<std::string> PartsOf(const std::string& strPath) {
    std::vector<std::string> Parts;
    std::string strPart;
    for (const char cByte : strPath + "\\") {
        if (!IsSeparator(cByte)) {
            strPart += cByte;
        } else if (strPart == "..") {
            if (Parts.size() > 1) {
                Parts.pop_back();
            }
            strPart.clear();
        } else {
            if (!strPart.empty() && strPart != ".") {
                Parts.push_back(strPart);
            }
            strPart.clear();
        }
    }
    return Parts;
}

DWORD CopyPath(const std::string& strPath, char* pszPath, DWORD dwSize) {
    if (strPath.size() >= dwSize) {
        return dwSize;
    }
    std::strcpy(pszPath, strPath.c_str());
    return static_cast<DWORD>(strPath.size());
}

}  // namespace

char* PathCombineA(char* pszResult, const char* pszFolder, const char* pszName) {
    const std::string strName = pszName;
    const bool bAbsolute = HasDrive(strName) || (!strName.empty() && IsSeparator(strName[0]));
    const std::string strWhole = bAbsolute ? strName : std::string(pszFolder) + "\\" + strName;
    std::string strResult;
    for (const std::string& strPart : PartsOf(strWhole)) {
        strResult += (strResult.empty() ? "" : "\\") + strPart;
    }
    if (strResult.size() == 2) {
        strResult += '\\';
    }
    if (strResult.size() >= MAX_PATH) {
        *pszResult = '\0';
        return nullptr;
    }
    return std::strcpy(pszResult, strResult.c_str());
}

char* PathFindFileNameA(const char* pszPath) {
    const char* pszName = pszPath;
    for (const char* pszAt = pszPath; *pszAt != '\0'; ++pszAt) {
        if ((IsSeparator(*pszAt) || *pszAt == ':') && pszAt[1] != '\0' && !IsSeparator(pszAt[1])) {
            pszName = pszAt + 1;
        }
    }
    return const_cast<char*>(pszName);
}

BOOL PathFileExistsA(const char* pszPath) {
    return FindFile(pszPath) != nullptr ? TRUE : FALSE;
}

BOOL PathIsDirectoryA(const char* pszPath) {
    const native::File* pFile = FindFile(pszPath);
    return pFile != nullptr && pFile->bFolder ? TRUE : FALSE;
}

DWORD GetCurrentDirectoryA(DWORD dwSize, char* pszPath) {
    return CopyPath(TheWorld().strCurrentFolder, pszPath, dwSize);
}

DWORD GetModuleFileNameA(HMODULE, char* pszPath, DWORD dwSize) {
    return CopyPath(TheWorld().strModuleFile, pszPath, dwSize);
}

char* _fullpath(char* pszResult, const char* pszPath, std::size_t uSize) {
    const std::string strPath = pszPath;
    const std::string strFull = HasDrive(strPath) || (!strPath.empty() && IsSeparator(strPath[0]))
                                    ? strPath
                                    : TheWorld().strCurrentFolder + "\\" + strPath;
    if (strFull.size() >= uSize) {
        return nullptr;
    }
    return std::strcpy(pszResult, strFull.c_str());
}
