// The log: one process-wide text file a start and day, where every step and every failed check is written.
//
// Start and Close belong to the main thread, before and after all other use; Write may be called from any thread.
// The log reports its own troubles on standard error (folders, opening) and standard output (a failed write).
#pragma once

#include <cstdarg>
#include <cstddef>
#include <cstdint>

#include "util/Compat.h"

namespace crashvane {

enum LogLevel : int {
    LogInfo = 6,   // progress and results
    LogDebug = 7,  // the command line, every failed check and every failure text
};

enum LogFlag : std::uint32_t {
    LogToFile = 1,
    LogToStandardOutput = 2,
    LogToStandardError = 4,
};

struct LogSettings {
    char szRoot[1024];       // folder of all logs, "logs"
    char szIdentity[1024];   // names the folder below it and begins every file's name, "Crashvane"
    std::uint32_t uFlags;    // LogFlag bits
    std::int32_t nMaxLines;  // a file's lines; the next line opens a new file
};

namespace Log {

// Copies the settings and forms the log folder; opens no file. False: the folder's name does not fit 1023 characters
// (or root or identity is empty while the file is wanted).
bool Start(const LogSettings& Settings);

// Writes one line of at most 1023 bytes, in the formats of the Windows C runtime. False: a needed new file could not
// be opened (the line still went to the standard streams that the flags name).
bool Write(int nLevel, const char* pszFormat, ...) CRASHVANE_PRINTF(2, 3);

// Closes the file. The next Write would go on in a new one only after the next Start.
void Close();

// Seconds since 1970 of the local clock that stamps lines and names files; a test puts its own in place (nullptr: the
// system's again).
using Clock = std::int64_t (*)();
void SetClock(Clock pfnClock);

// Prints into Count bytes, always terminated; -1: the text did not fit and was cut.
int PrintBounded(char* pszBuffer, std::size_t uCount, const char* pszFormat, ...) CRASHVANE_PRINTF(3, 4);
int PrintBoundedV(char* pszBuffer, std::size_t uCount, const char* pszFormat, std::va_list Arguments);

}  // namespace Log
}  // namespace crashvane
