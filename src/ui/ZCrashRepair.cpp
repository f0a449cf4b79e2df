#include "ui/ZCrashRepair.h"

#include <windows.h>

#include <cstring>

#include "collection/Collection.h"
#include "driver/Config.h"
#include "log/Check.h"
#include "log/Log.h"
#include "net/ReportSteps.h"
#include "ui/Foreground.h"
#include "util/Handles.h"
#include "util/Text.h"

namespace crashvane {
namespace {

constexpr char RepairableProject[] = "BRENN";
constexpr char RepairableProcess[] = "BRENNClientX64.exe";

bool EqualsIgnoringCase(const std::string& strText, const char* pszOther) {
    return _stricmp(strText.c_str(), pszOther) == 0;
}

std::wstring OwnModule() {
    wchar_t szPath[RepairPathLimit] = {};
    const DWORD uLength = GetModuleFileNameW(nullptr, szPath, RepairPathLimit);
    return uLength < RepairPathLimit ? std::wstring(szPath, uLength) : std::wstring();
}

bool IsFile(const std::wstring& strPath) {
    const DWORD uAttributes = GetFileAttributesW(strPath.c_str());
    return uAttributes != INVALID_FILE_ATTRIBUTES && (uAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

}  // namespace

void ZCrashRepair::SetSource(Collection* pCollection, const Config* pConfig) {
    m_pCollection = pCollection;
    m_pConfig = pConfig;
}

bool ZCrashRepair::QuerySolution() {
    bool bResult = false;
    bool bRetCode = false;
    std::wstring strTool;

    m_bFound = 0;
    m_Facts.strTool.clear();
    m_strCommandLine.clear();

    bRetCode = EqualsIgnoringCase(m_pCollection->GetProjectName(), RepairableProject) &&
               EqualsIgnoringCase(m_pCollection->GetProcessName(), RepairableProcess);
    ZTLOG_PROCESS_ERROR(bRetCode);

    if (!FindTool(strTool)) {
        goto Exit0;
    }
    m_Facts.strTool = ToAnsi(strTool);
    CopyFacts();

    // A failed request says so itself and leaves the type at 0.
    SendDumpSolution(*m_pConfig, m_Facts.strDumpKey, m_Facts.nCrashType);
    Log::Write(LogInfo, "[QuerySolution] %s is exist!", m_Facts.strTool.c_str());
    Log::Write(LogInfo, "[QuerySolution] CrashType=%d, DumpKey=%s  Module=%s,%s", m_Facts.nCrashType,
               m_Facts.strDumpKey.c_str(), m_Facts.strModule.c_str(), m_Facts.strModuleVersion.c_str());
    if (m_Facts.nCrashType <= 0) {
        goto Exit0;
    }

    m_strCommandLine = ToUtf16(RepairCommandLine(m_Facts));
    m_bFound = 1;
    bResult = true;
Exit0:
    return bResult;
}

bool ZCrashRepair::StartRepair() {
    STARTUPINFOW StartupInfo = {};
    PROCESS_INFORMATION ProcessInfo = {};
    std::wstring strCommandLine = m_strCommandLine;

    if (strCommandLine.empty()) {
        return false;
    }
    StartupInfo.cb = sizeof(StartupInfo);
    if (!CreateProcessW(nullptr, strCommandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &StartupInfo,
                        &ProcessInfo)) {
        return false;
    }
    const ProcessHandle hProcess(ProcessInfo.hProcess);
    const ProcessHandle hThread(ProcessInfo.hThread);
    RaiseWindowOf(ProcessInfo.dwProcessId);
    return true;
}

bool ZCrashRepair::FindTool(std::wstring& strTool) const {
    const std::string& strRestartApp = m_pConfig->m_strRestartApp;
    strTool = RepairToolOf(strRestartApp.empty() ? OwnModule() : ToUtf16(strRestartApp));
    return !strTool.empty() && IsFile(strTool);
}

void ZCrashRepair::CopyFacts() {
    const CrashReporter& Report = m_pCollection->m_CrashReporter;
    m_Facts.nCrashType = 0;
    m_Facts.strDumpKey = Report.Exception.DumpKey;
    m_strFirstLogin = m_pCollection->m_strAccount;
    m_Facts.uCrashTime = static_cast<std::uint64_t>(Report.Exception.ExceptionTime);
    m_Facts.strModule = Report.Exception.ExceptionModuleName;
    m_Facts.strModuleVersion = ModuleVersionOf(Report.Modules, m_Facts.strModule);
    m_Facts.uTimeToFailure = static_cast<std::uint64_t>(Report.Exception.TimeToFailure);
}

}  // namespace crashvane
