// Finding files and folders. Paths are narrow text in the system's ANSI code page; nothing here logs.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace crashvane {

// Path of a found entry (folder joined with name) and what the search said of it. Returning is all that goes on with
// the search; the data is valid during the call only.
using FileVisitor = std::function<void(const std::string& strPath, const WIN32_FIND_DATAA& Data)>;

// Calls Visit for every file (never a folder) that matches in the folder's immediate subfolders and then in the folder
// itself, in the order of the file system. bNoSubFolders: the folder itself alone. Files two and more levels down are
// not found; that depth of one is meant. False: the folder could not be searched. A pattern that matches nothing is
// not an error.
bool VisitFiles(const std::string& strFolder, const std::string& strPattern, bool bNoSubFolders,
                const FileVisitor& Visit);

// The same as a list of paths, appended to Result.
bool FindFiles(std::vector<std::string>& Result, const std::string& strFolder, const std::string& strPattern,
               bool bNoSubFolders);

// Appends the folder's subfolders but "." and "..", as folder joined with name. False: could not be searched.
bool ListSubFolders(std::vector<std::string>& Result, const std::string& strFolder);

// The same for those whose name matches the pattern. False: the search could not start.
bool ListSubFolders(std::vector<std::string>& Result, const std::string& strFolder, const std::string& strPattern);

// The system's folder test.
bool IsFolder(const std::string& strPath);

// The path exists and is not a folder.
bool FileExists(const std::string& strPath);

}  // namespace crashvane
