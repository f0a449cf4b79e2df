#include "collection/BrennCollection.h"

#include "collection/BrennEditions.h"
#include "collection/NearestFile.h"
#include "collection/ProgramFolder.h"
#include "collection/VersionReaders.h"
#include "log/Check.h"
#include "util/Files.h"
#include "util/Profile.h"

namespace crashvane {

namespace {

std::string ReadVersionKey(const std::string& strVersionCfg, const char* pszKey) {
    return ReadProfileText(strVersionCfg, "Version", pszKey);
}

}  // namespace

int BrennCollection::GetProjectImgId() {
    int nResult = BrennCommonImageId;
    int nRetCode = 0;
    const std::string strVersionKey = "version";
    const std::string strVersionCfg = BesideProgram("..\\version.cfg");

    ZTLOG_PROCESS_ERROR(!strVersionKey.empty());
    ZTLOG_PROCESS_ERROR(!strVersionCfg.empty());
    nRetCode = FileExists(strVersionCfg);
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = BrennImageId(ReadVersionKey(strVersionCfg, "Tessel.VersionLineName"));
Exit0:
    return nResult;
}

bool BrennCollection::IsForceSend() {
    return ModuleFolder().find("zhcn_exp") != std::string::npos ||
           m_CrashReporter.Product.ProductVersionEx == "bvtzhcn";
}

int BrennCollection::CollectConfigFile() {
    const std::string strConfigFile = BesideProgram("..\\config.ini");

    if (FileExists(strConfigFile)) {
        m_CrashReporter.CustomFiles.push_back(strConfigFile);
    }
    return 1;
}

int BrennCollection::CollectInfo() {
    static constexpr const char* RawOptions[] = {"nShadowType", "nFoliageDensity", "fCameraDistance"};
    static constexpr const char* Section = "ZT3DENGINE";
    int nResult = 0;
    const std::string strConfigFile = BesideProgram("..\\engineoptionsnap.ini");

    ZTLOG_PROCESS_ERROR(!strConfigFile.empty());
    if (!FileExists(strConfigFile)) {
        AddCustomInfo("engineoptionsnap.ini is not found");
        nResult = 1;
        goto Exit0;
    }

    AddCustomInfo(ReadProfileText(strConfigFile, Section, "bEnableRC_ForwardRender") == "1"
                      ? "bEnableRC_ForwardRender=1"
                      : "bEnableRC_ForwardRender=0");
    for (const char* pszOption : RawOptions) {
        AddCustomInfo(std::string(pszOption) + "=" + ReadProfileText(strConfigFile, Section, pszOption));
    }

    nResult = 1;
Exit0:
    return nResult;
}

int BrennCollection::CollectLog() {
    return Collection::CollectLog(BesideProgram("..\\logs"));
}

int BrennCollection::CollectLoginInfo() {
    static constexpr const char* Section = "LastLogin";
    const std::string strUserData = BesideProgram("..\\userdata");
    std::string strAccount;
    std::string strLogin;

    if (!IsFolder(strUserData)) {
        return 0;
    }
    strLogin = FindNearestFile(strUserData, "login.ini", m_CrashReporter.Exception.ExceptionTime);
    if (strLogin.empty()) {
        return 0;
    }

    m_strRoleName = ReadProfileText(strLogin, Section, "RoleName");
    m_strRegionName = ReadProfileText(strLogin, Section, "RegionName");
    m_strServerName = ReadProfileText(strLogin, Section, "ServerName");
    strAccount = FirstFolderBelow(strUserData, strLogin);
    if (!strAccount.empty()) {
        m_strAccount = strAccount;
    }
    return 1;
}

int BrennCollection::CollectVersion() {
    int nResult = 0;
    int nRetCode = 0;
    const std::string strVersionCfg = BesideProgram("..\\version.cfg");
    Product& Product = m_CrashReporter.Product;

    ZTLOG_PROCESS_ERROR(!strVersionCfg.empty());
    nRetCode = FileExists(strVersionCfg);
    ZTLOG_PROCESS_ERROR(nRetCode);

    Product.ProductVersion = ReadVersionKey(strVersionCfg, "Tessel.version") + PakSuffix("..\\Pak");
    Product.ProductVersionEx = BrennVersionEx(
        Product.ProductName, ReadVersionKey(strVersionCfg, "Tessel.VersionCodeName"),
        ReadVersionKey(strVersionCfg, "Tessel.versionex"), ReadVersionKey(strVersionCfg, "Tessel.VersionLineName"));

    nResult = 1;
Exit0:
    return nResult;
}

int BrennCollection::CollectProductThreadType() {
    int nResult = 0;
    const std::string strConfigFile = BesideProgram("..\\config.ini");
    bool bMultiThread = false;

    ZTLOG_PROCESS_ERROR(!strConfigFile.empty());
    bMultiThread = FileExists(strConfigFile) && ReadProfileText(strConfigFile, "Main", "MultiThread") == "1";
    m_CrashReporter.Product.ProductThreadType = bMultiThread ? "MultiThread" : "SingleThread";

    nResult = 1;
Exit0:
    return nResult;
}

}  // namespace crashvane
