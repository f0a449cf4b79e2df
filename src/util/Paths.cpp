#include "util/Paths.h"

#include <windows.h>

#include <shlwapi.h>

#include <cstdlib>

namespace crashvane {

std::string CombinePath(const std::string& strFolder, const std::string& strName) {
    char szPath[MAX_PATH] = {};
    return PathCombineA(szPath, strFolder.c_str(), strName.c_str()) != nullptr ? szPath : std::string();
}

std::string FileNameOf(const std::string& strPath) {
    return PathFindFileNameA(strPath.c_str());
}

std::string FolderOf(const std::string& strPath) {
    return strPath.substr(0, static_cast<std::size_t>(PathFindFileNameA(strPath.c_str()) - strPath.c_str()));
}

std::string FullPath(const std::string& strPath) {
    char szPath[MAX_PATH] = {};
    if (strPath.empty() || _fullpath(szPath, strPath.c_str(), sizeof(szPath)) == nullptr) {
        return std::string();
    }
    return szPath;
}

std::string CurrentFolder() {
    char szPath[MAX_PATH] = {};
    const DWORD dwLength = GetCurrentDirectoryA(sizeof(szPath), szPath);
    return dwLength < sizeof(szPath) ? std::string(szPath, dwLength) : std::string();
}

std::string ModuleFile() {
    char szPath[MAX_PATH] = {};
    const DWORD dwLength = GetModuleFileNameA(nullptr, szPath, sizeof(szPath));
    return dwLength < sizeof(szPath) ? std::string(szPath, dwLength) : std::string();
}

const std::string& ModuleFolder() {
    static const std::string strFolder = FolderOf(ModuleFile());
    return strFolder;
}

}  // namespace crashvane
