// Writes what the sender needs about one crash: a dump and a report.
#pragma once

#include <windows.h>

#include "CrashHandler.h"
#include "MachineFacts.h"

namespace sample {

// The crash itself. The pointers belong to the crashed thread, which waits meanwhile.
struct CrashMoment {
    EXCEPTION_POINTERS* pException;
    DWORD dwThread;
    FILETIME Time;
};

// Made early; the GUID tells this crash from all others, in the file names too.
struct CrashPaths {
    char szGuid[40];
    char szDump[MAX_PATH];
    char szReport[MAX_PATH];
};

// Loads what the functions below need, while the process is still well.
void PrepareReport();
void MakePaths(CrashPaths& Paths, const char* pszFolder);

bool WriteDump(const char* pszPath, const CrashMoment& Moment);
bool WriteReport(const CrashPaths& Paths, const CrashMoment& Moment, const MachineFacts& Machine,
                 const CrashSettings& Settings);

}  // namespace sample
