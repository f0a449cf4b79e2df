// The check line for code that several classes share: it is told in whose function it stands.
//
// Otherwise as the macros of log/Check.h: the condition is evaluated once and logged as it stands in the source.
#pragma once

#include <string>

namespace crashvane {

// Writes "ZTLOG_PROCESS_ERROR(<condition>) at line <line> in <function>".
void LogFailedCheck(const char* pszCondition, int nLine, const std::string& strFunction);

}  // namespace crashvane

// False: logs under the function's name and leaves at Exit0.
#define ZTLOG_PROCESS_ERROR_IN(strFunction, condition)                    \
    do {                                                                  \
        if (!(condition)) {                                               \
            crashvane::LogFailedCheck(#condition, __LINE__, strFunction); \
            goto Exit0;                                                   \
        }                                                                 \
    } while (false)
