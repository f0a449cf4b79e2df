// Where the repair tool lies and what it is told: rules on texts alone, without disk or network.
//
// Narrow texts are in the system's ANSI code page unless a code page is given. Nothing here logs or fails but as said.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "report/Records.h"

namespace crashvane {

constexpr std::size_t RepairPathLimit = 260;     // characters, terminator included
constexpr std::size_t RepairCommandLimit = 520;  // bytes, terminator included

// The tool in the folder two levels above the executable's file: D:\G\bin64\Client.exe gives D:\G\Mendwell.exe.
// Empty: a "\" is missing, or a path reaches the limit.
std::wstring RepairToolOf(const std::wstring& strExecutable);

// FileVersion of the first module whose file name equals the given one ignoring case; modules whose path has no "\"
// are passed over. Empty: no such module. A trail byte of a double-byte character is never taken for a "\".
std::string ModuleVersionOf(const std::vector<Module>& Modules, const std::string& strModule, UINT uCodePage = CP_ACP);

// What the tool's command line says of the crash.
struct RepairFacts {
    std::string strTool;
    std::int32_t nCrashType = 0;
    std::string strDumpKey;
    std::string strModule;
    std::string strModuleVersion;
    std::uint64_t uCrashTime = 0;      // seconds since 1970
    std::uint64_t uTimeToFailure = 0;  // seconds
};

// The command line, cut to its limit in bytes. Path and texts stand as they are: nothing is quoted or escaped.
std::string RepairCommandLine(const RepairFacts& Facts);

}  // namespace crashvane
