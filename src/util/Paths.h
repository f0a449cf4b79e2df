// Joining and splitting paths, and where the program stands. Narrow text in the system's ANSI code page throughout;
// what fails is an empty text.
#pragma once

#include <string>

namespace crashvane {

// The system's path-combine rule: a separator where needed, "." and ".." resolved. Empty when it fails.
std::string CombinePath(const std::string& strFolder, const std::string& strName);

// The part behind the last separator.
std::string FileNameOf(const std::string& strPath);

// The path without its file name, with its trailing "\". Empty for an empty path.
std::string FolderOf(const std::string& strPath);

// Absolute path by the runtime's rule, at most 259 characters. Empty for an empty path or a failure.
std::string FullPath(const std::string& strPath);

std::string CurrentFolder();

// The program's own file, at most 259 characters.
std::string ModuleFile();

// The program's own folder, with its trailing "\"; found on the first call and kept for the rest of the process.
const std::string& ModuleFolder();

}  // namespace crashvane
