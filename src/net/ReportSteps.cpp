#include "net/ReportSteps.h"

#include "log/Check.h"
#include "net/MemoryGuard.h"
#include "net/Requests.h"

namespace crashvane {
namespace {

// The last login is the collector's knowledge, not the report's.
void CopyLogin(DumpInfo& Info, const Collection& Source) {
    Info.account = Source.m_strAccount;
    Info.rolename = Source.m_strRoleName;
    Info.regionname = Source.m_strRegionName;
    Info.servername = Source.m_strServerName;
}

}  // namespace

int SendActiveMachine(Collection* pCollection, const Config& Settings) {
    int nResult = 0;
    int nRetCode = 0;
    ActiveMachineInfo Info;

    nRetCode = UnlessOutOfMemory([&] { return FillActiveMachineInfo(&Info, pCollection->m_CrashReporter); });
    ZTLOG_PROCESS_ERROR(nRetCode);

    nRetCode =
        UnlessOutOfMemory([&] { return PostActiveMachine(Settings.m_strPlayerLoginUrl, Settings.m_strProject, Info); });
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int SendSession(Collection* pCollection, const Config& Settings) {
    int nResult = 0;
    int nRetCode = 0;
    SessionInfo Info;

    nRetCode = UnlessOutOfMemory([&] {
        return FillSessionInfo(&Info, pCollection->m_CrashReporter) &&
               PostSession(Settings.m_strSessionUrl, Settings.m_strProject, Info);
    });
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int SendDumpInfo(Collection* pCollection, const Config& Settings) {
    int nResult = 0;
    int nRetCode = 0;
    DumpInfo Info;

    nRetCode = UnlessOutOfMemory([&] {
        const int nFilled = FillDumpInfo(&Info, pCollection->m_CrashReporter);
        CopyLogin(Info, *pCollection);
        return nFilled;
    });
    ZTLOG_PROCESS_ERROR(nRetCode);

    nRetCode = UnlessOutOfMemory([&] { return PostDumpInfo(Settings.m_strDumpInfoUrl, Settings.m_strProject, Info); });
    ZTLOG_CHECK_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int SendDumpSolution(const Config& Settings, const std::string& strDumpKey, int& nCrashType) {
    int nResult = 0;
    int nRetCode = 0;

    nCrashType = 0;
    nRetCode = UnlessOutOfMemory(
        [&] { return PostDumpSolution(Settings.m_strDumpTypeUrl, Settings.m_strProject, strDumpKey, nCrashType); });
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

}  // namespace crashvane
