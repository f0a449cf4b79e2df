#include "collection/ToldCheck.h"

#include "log/Log.h"

namespace crashvane {

void LogFailedCheck(const char* pszCondition, int nLine, const std::string& strFunction) {
    Log::Write(LogDebug, "ZTLOG_PROCESS_ERROR(%s) at line %d in %s\n", pszCondition, nLine, strFunction.c_str());
}

}  // namespace crashvane
