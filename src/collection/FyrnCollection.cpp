#include <string>

#include "collection/Editions.h"
#include "collection/Products.h"
#include "collection/ProgramFolder.h"
#include "log/Check.h"
#include "util/Files.h"
#include "util/Profile.h"

namespace crashvane {

// "?" stands for the edition that "version.cfg" names.
std::string FyrnCollection::GetVersionExA() {
    static constexpr Edition Editions[] = {{"fyrn.exe", "?"}, {"fyrnexp.exe", "expzhcn"}};
    std::string strEdition = EditionOf(m_CrashReporter.Product.ProductName, Editions, "other");
    const std::string strVersionCfg = BesideProgram("version.cfg");

    if (strEdition != "?") {
        return strEdition;
    }
    strEdition.clear();
    ZTLOG_PROCESS_ERROR(!strVersionCfg.empty());
    if (!FileExists(strVersionCfg)) {
        strEdition = "zhcn";
        goto Exit0;
    }
    strEdition = ReadProfileText(strVersionCfg, "Version", "VersionLineName");
    if (strEdition != "NW") {
        strEdition = ReadProfileText(strVersionCfg, "Version", "versionName");
    }
Exit0:
    return strEdition;
}

int FyrnCollection::CollectVersion() {
    int nResult = 0;
    int nRetCode = 0;
    Product& Product = m_CrashReporter.Product;
    const std::string strVersionCfg = BesideProgram("version.cfg");
    const std::string strVersionExpCfg = BesideProgram("version_exp.cfg");
    const std::string* pstrVersionFile = nullptr;

    Product.ProductVersionEx = GetVersionExA();
    if (Product.ProductVersionEx == "zhcn" || Product.ProductVersionEx == "zhtw" || Product.ProductVersionEx == "NW") {
        ZTLOG_PROCESS_ERROR(!strVersionCfg.empty());
        pstrVersionFile = &strVersionCfg;
    } else if (Product.ProductVersionEx == "expzhcn") {
        ZTLOG_PROCESS_ERROR(!strVersionExpCfg.empty());
        pstrVersionFile = &strVersionExpCfg;
    }
    if (pstrVersionFile != nullptr) {
        nRetCode = FileExists(*pstrVersionFile);
        ZTLOG_PROCESS_ERROR(nRetCode);
        Product.ProductVersion = ReadProfileText(*pstrVersionFile, "Version", "version");
    }

    nResult = 1;
Exit0:
    return nResult;
}

int FyrnCollection::CollectLoginInfo() {
    static constexpr const char* Section = "Main";
    const std::string strDumpInfo = BesideProgram("UserData\\Temp\\dumpinfo.ini");

    if (!FileExists(strDumpInfo)) {
        return 0;
    }
    m_strRoleName = ReadProfileText(strDumpInfo, Section, "RoleName");
    m_strAccount = ReadProfileText(strDumpInfo, Section, "Account");
    m_strRegionName = ReadProfileText(strDumpInfo, Section, "ZoneName");
    m_strServerName = ReadProfileText(strDumpInfo, Section, "SvrName");
    return 1;
}

}  // namespace crashvane
