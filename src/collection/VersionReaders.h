// How products tell their version: the readers that several of them share.
//
// A reader is told the qualified name of the function for which it reads ("ToolCollection::CollectVersion"); its check
// lines carry that name. A folder of the file's name counts as missing; a missing section or key is an empty value.
#pragma once

#include <string>

#include "report/CrashReporter.h"

namespace crashvane {

// "_PAK" in a packaged installation, "_SVN" in a working copy. The folder is relative to the current folder.
std::string PakSuffix(const char* pszPakFolder);

// 1: there is a path. 0: a check line says that it is empty (program folder and name together are too long).
int CheckVersionPath(const std::string& strFunction, const std::string& strVersionCfg);

// 1: there is such a file. 0: a check line says what is missing, path or file.
int CheckVersionFile(const std::string& strFunction, const std::string& strVersionCfg);

// A key of section "Version" of "version.cfg" beside the program; empty with a check line when the file is missing.
std::string ReadVersionEx(const std::string& strFunction, const char* pszKey);

// Key "version" of the same section into ProductVersion, which stays as it is when the file is missing. 0: no path.
int ReadVersion(const std::string& strFunction, Product& Product);

// "<MajorVersion>.<the minor key's value>" of a section.
std::string ReadDottedVersion(const std::string& strFile, const char* pszSection, const char* pszMinorKey);

}  // namespace crashvane
