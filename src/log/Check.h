// The check macros: a failed condition becomes a log line that names condition, line and function.
//
// A function that uses them keeps one result variable that starts at failure and has one exit labelled Exit0:
//
//     int Config::Something(const std::string& strName) {
//         int nResult = 0;
//         int nRetCode = 0;
//
//         ZTLOG_PROCESS_ERROR(!strName.empty());
//         nRetCode = Other(strName);
//         ZTLOG_CHECK_ERROR(nRetCode);
//
//         nResult = 1;
//     Exit0:
//         return nResult;
//     }
//
// The condition is evaluated once and logged as it stands in the source; the function's name comes from the compiler.
#pragma once

#include "log/FunctionName.h"
#include "log/Log.h"

// The line that all three write. A condition's text is an argument, never a format.
#define ZTLOG_CHECK_LINE(macro, text)                                                               \
    do {                                                                                            \
        static constexpr auto FunctionNameOfCheck = crashvane::FunctionName(CRASHVANE_SIGNATURE);   \
        crashvane::Log::Write(crashvane::LogDebug, macro "(%s) at line %d in %s\n", text, __LINE__, \
                              FunctionNameOfCheck.szText);                                          \
    } while (false)

// False: logs and leaves the function at Exit0 with the result as it is.
#define ZTLOG_PROCESS_ERROR(condition)                           \
    do {                                                         \
        if (!(condition)) {                                      \
            ZTLOG_CHECK_LINE("ZTLOG_PROCESS_ERROR", #condition); \
            goto Exit0;                                          \
        }                                                        \
    } while (false)

// False: logs and goes on.
#define ZTLOG_CHECK_ERROR(condition)                           \
    do {                                                       \
        if (!(condition)) {                                    \
            ZTLOG_CHECK_LINE("ZTLOG_CHECK_ERROR", #condition); \
        }                                                      \
    } while (false)

// True: logs and leaves the function at Exit1, where the result becomes success on the way to Exit0.
#define ZTLOG_PROCESS_SUCCESS(condition)                           \
    do {                                                           \
        if (condition) {                                           \
            ZTLOG_CHECK_LINE("ZTLOG_PROCESS_SUCCESS", #condition); \
            goto Exit1;                                            \
        }                                                          \
    } while (false)
