// What a report says about the modules of the crashed process: where they were loaded, and which versions they are.
#pragma once

#include <windows.h>

#include "ReportFile.h"

namespace sample {

constexpr std::size_t VERSION_SIZE = 32;

// Loads what the functions below need, while the process is still well. Call once, early.
void PrepareModuleFacts();

// File and product version of a module as "1.2.3.4"; empty when it has none.
void ReadVersions(const char* pszFile, char (&szFileVersion)[VERSION_SIZE], char (&szProductVersion)[VERSION_SIZE]);

// Path and load address of the module that holds an address; empty and 0 when none does.
DWORD64 ModuleAt(const void* pAddress, char (&szPath)[MAX_PATH]);

// Writes the element "Modules".
void WriteModules(ReportFile& Report);

}  // namespace sample
