// INI files, read with the system's private-profile reader.
#pragma once

#include <string>

namespace crashvane {

// A key's value, at most 1023 bytes; the default (empty) for a missing file, section or key. strFile should be an
// absolute path: the system looks for a bare name in its own folder.
std::string ReadProfileText(const std::string& strFile, const char* pszSection, const char* pszKey,
                            const char* pszDefault = "");

// The system's number of a key: leading digits with an optional minus sign, the default for a missing key.
int ReadProfileNumber(const std::string& strFile, const char* pszSection, const char* pszKey, int nDefault);

}  // namespace crashvane
