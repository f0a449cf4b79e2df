// Which program wrote this log: its file and its version.
#pragma once

#include <string>

namespace crashvane {

// The fixed file version of an executable as "1.2.3.4"; empty when it has none or cannot be read.
std::wstring FileVersionOf(const std::wstring& strFile);

// Logs "[WinMain] <own file> v<own version>" at level 6.
void LogOwnVersion();

}  // namespace crashvane
