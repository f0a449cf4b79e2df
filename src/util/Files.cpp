#include "util/Files.h"

#include <shlwapi.h>

#include <cstring>

#include "util/Handles.h"
#include "util/Paths.h"

namespace crashvane {
namespace {

bool IsDots(const char* pszName) {
    return std::strcmp(pszName, ".") == 0 || std::strcmp(pszName, "..") == 0;
}

// Calls Visit for each entry that matches. False: the search could not start for another reason than that nothing
// matches.
template <typename Function>
bool Search(const std::string& strFolder, const std::string& strPattern, const Function& Visit) {
    WIN32_FIND_DATAA Data = {};
    const std::string strSearch = CombinePath(strFolder, strPattern);
    FindHandle hFind(FindFirstFileExA(strSearch.c_str(), FindExInfoStandard, &Data, FindExSearchNameMatch, nullptr, 0));
    if (!hFind) {
        return GetLastError() == ERROR_FILE_NOT_FOUND;
    }
    do {
        Visit(Data);
    } while (FindNextFileA(hFind.Get(), &Data));
    return true;
}

bool IsFolderEntry(const WIN32_FIND_DATAA& Data) {
    return (Data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

}  // namespace

bool VisitFiles(const std::string& strFolder, const std::string& strPattern, bool bNoSubFolders,
                const FileVisitor& Visit) {
    if (!bNoSubFolders) {
        std::vector<std::string> SubFolders;
        ListSubFolders(SubFolders, strFolder);
        for (const std::string& strSubFolder : SubFolders) {
            VisitFiles(strSubFolder, strPattern, true, Visit);
        }
    }
    return Search(strFolder, strPattern, [&](const WIN32_FIND_DATAA& Data) {
        if (!IsFolderEntry(Data)) {
            Visit(CombinePath(strFolder, Data.cFileName), Data);
        }
    });
}

bool FindFiles(std::vector<std::string>& Result, const std::string& strFolder, const std::string& strPattern,
               bool bNoSubFolders) {
    return VisitFiles(strFolder, strPattern, bNoSubFolders,
                      [&](const std::string& strPath, const WIN32_FIND_DATAA&) { Result.push_back(strPath); });
}

bool ListSubFolders(std::vector<std::string>& Result, const std::string& strFolder) {
    return ListSubFolders(Result, strFolder, "*");
}

bool ListSubFolders(std::vector<std::string>& Result, const std::string& strFolder, const std::string& strPattern) {
    return Search(strFolder, strPattern, [&](const WIN32_FIND_DATAA& Data) {
        if (IsFolderEntry(Data) && !IsDots(Data.cFileName)) {
            Result.push_back(CombinePath(strFolder, Data.cFileName));
        }
    });
}

bool IsFolder(const std::string& strPath) {
    return PathIsDirectoryA(strPath.c_str()) != FALSE;
}

bool FileExists(const std::string& strPath) {
    return PathFileExistsA(strPath.c_str()) != FALSE && !IsFolder(strPath);
}

}  // namespace crashvane
