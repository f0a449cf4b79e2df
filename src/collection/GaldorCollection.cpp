#include "collection/Products.h"
#include "collection/ProgramFolder.h"
#include "util/Files.h"
#include "util/Profile.h"

namespace crashvane {

int GaldorCollection::CollectConfigFile() {
    const std::string strConfigFile = BesideProgram("config.ini");

    if (FileExists(strConfigFile)) {
        m_CrashReporter.CustomFiles.push_back(strConfigFile);
    }
    return 1;
}

int GaldorCollection::CollectLog() {
    Collection::CollectLog(BesideProgram("logs"));
    return Collection::CollectLog(BesideProgram("log"));
}

int GaldorCollection::CollectLoginInfo() {
    static constexpr const char* Section = "Login";
    const std::string strSetting = BesideProgram("user\\setting.ini");

    if (!FileExists(strSetting)) {
        return 0;
    }
    m_strAccount = ReadProfileText(strSetting, Section, "Account");
    m_strRoleName = ReadProfileText(strSetting, Section, "RoleName");
    m_strRegionName = ReadProfileText(strSetting, Section, "RegionName");
    m_strServerName = ReadProfileText(strSetting, Section, "ServerName");
    return 1;
}

}  // namespace crashvane
