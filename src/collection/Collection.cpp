#include "collection/Collection.h"

#include <vector>

#include "collection/NearestFile.h"
#include "collection/ProgramFolder.h"
#include "collection/VersionReaders.h"
#include "log/Check.h"
#include "util/Files.h"
#include "util/Profile.h"

namespace crashvane {

Collection::~Collection() = default;

int Collection::Init(const std::string& strCrashReportFile, int bProjectFromCmd) {
    int nResult = 0;
    int nRetCode = 0;

    ZTLOG_PROCESS_ERROR(!strCrashReportFile.empty());
    m_strCrashReportFile = strCrashReportFile;

    nRetCode = m_CrashReporter.Load(strCrashReportFile);
    ZTLOG_PROCESS_ERROR(nRetCode);

    if (!bProjectFromCmd) {
        nRetCode = CollectVersion();
        ZTLOG_CHECK_ERROR(nRetCode);
    }
    nRetCode = CollectLog();
    ZTLOG_CHECK_ERROR(nRetCode);
    nRetCode = CollectConfigFile();
    ZTLOG_CHECK_ERROR(nRetCode);
    nRetCode = CollectInfo();
    ZTLOG_CHECK_ERROR(nRetCode);
    nRetCode = CollectLoginInfo();
    ZTLOG_CHECK_ERROR(nRetCode);
    nRetCode = CollectProductThreadType();
    ZTLOG_CHECK_ERROR(nRetCode);
    nRetCode = CollectProductBitType();
    ZTLOG_CHECK_ERROR(nRetCode);

    m_CrashReporter.Project = GetProjectName();
    m_strProcessName = m_CrashReporter.Exception.ProcessName;
    if (!m_strCrashReportFile.empty()) {
        // What was collected is sent even when it cannot be written back; the report says itself what failed.
        m_CrashReporter.Save(m_strCrashReportFile);
    }

    nResult = 1;
Exit0:
    return nResult;
}

const std::string& Collection::GetProcessName() {
    return m_strProcessName;
}

bool Collection::IsForceSend() {
    return false;
}

int Collection::CollectConfigFile() {
    return 1;
}

int Collection::CollectInfo() {
    return 1;
}

int Collection::CollectLog() {
    return CollectLog(BesideProgram("logs"));
}

int Collection::CollectLoginInfo() {
    return 0;
}

int Collection::CollectVersion() {
    return CollectVersion("version", "versionex", "VersionLineName");
}

int Collection::CollectProductThreadType() {
    return 0;
}

int Collection::CollectProductBitType() {
    m_CrashReporter.Product.ProductBitType = "x64";
    return 1;
}

int Collection::CollectLog(const std::string& strLogDir) {
    int nResult = 0;
    int nRetCode = 0;
    std::vector<std::string> SubFolders;

    nRetCode = IsFolder(strLogDir);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ListSubFolders(SubFolders, strLogDir, "*");
    ZTLOG_PROCESS_ERROR(nRetCode);

    for (const std::string& strSubFolder : SubFolders) {
        const std::string strLog = FindNearestFile(strSubFolder, "*.log", m_CrashReporter.Exception.ExceptionTime);
        if (!strLog.empty()) {
            m_CrashReporter.CustomFiles.push_back(strLog);
        }
    }

    nResult = 1;
Exit0:
    return nResult;
}

int Collection::CollectVersion(const std::string& strVersionKey, const std::string& strVersionExKey,
                               const std::string& strVersionLineNameKey) {
    int nResult = 0;
    int nRetCode = 0;
    std::string strVersionCfg;
    Product& Product = m_CrashReporter.Product;

    ZTLOG_PROCESS_ERROR(!strVersionKey.empty());
    ZTLOG_PROCESS_ERROR(!strVersionExKey.empty());

    strVersionCfg = BesideProgram("version.cfg");
    ZTLOG_PROCESS_ERROR(!strVersionCfg.empty());
    nRetCode = FileExists(strVersionCfg);
    ZTLOG_PROCESS_ERROR(nRetCode);

    Product.ProductVersion = ReadProfileText(strVersionCfg, "Version", strVersionKey.c_str()) + PakSuffix("Pak");
    Product.ProductVersionEx = ReadProfileText(strVersionCfg, "Version", strVersionExKey.c_str());
    Product.ProductVersionEx += ReadProfileText(strVersionCfg, "Version", strVersionLineNameKey.c_str());

    nResult = 1;
Exit0:
    return nResult;
}

int Collection::AddCustomInfo(const std::string& strInfo) {
    m_CrashReporter.CustomInfos.push_back(strInfo);
    return 1;
}

}  // namespace crashvane
