// Every key that a product reads, with every kind of value: too long, empty, missing, double-byte.
#include <gmock/gmock.h>

#include <functional>
#include <tuple>

#include "collection/BrennCollection.h"
#include "collection/Installation.h"
#include "collection/Products.h"

namespace crashvane {
namespace {

template <typename Class>
std::unique_ptr<Collection> Make(const std::string& strExecutable) {
    return test::MakeCollector<Class>(strExecutable);
}

enum Field { Version, VersionEx, Account, RoleName, RegionName, ServerName, Info1, Info2, Info3 };

std::string TextOf(const Collection& Collector, Field Which) {
    const CrashReporter& Report = Collector.m_CrashReporter;
    switch (Which) {
        case Version:
            return Report.Product.ProductVersion;
        case VersionEx:
            return Report.Product.ProductVersionEx;
        case Account:
            return Collector.m_strAccount;
        case RoleName:
            return Collector.m_strRoleName;
        case RegionName:
            return Collector.m_strRegionName;
        case ServerName:
            return Collector.m_strServerName;
        default:
            return Report.CustomInfos.at(static_cast<std::size_t>(Which - Info1 + 1));
    }
}

struct Key {
    const char* pszName;
    std::function<std::unique_ptr<Collection>(const std::string&)> Maker;
    const char* pszExecutable;
    const char* pszFile;
    const char* pszSection;
    const char* pszKey;
    const char* pszOtherLines;  // of the same section
    Field Which;
    const char* pszBefore;  // what the field holds before and behind the value
    const char* pszBehind;
    std::size_t uLongest = 1023;
};

struct Value {
    const char* pszName;
    std::string strText;
};

class Values : public test::CollectorTest, public testing::WithParamInterface<std::tuple<Key, Value>> {
  protected:
    void ExpectField(const std::string& strFile, const std::string& strValue) {
        const Key& Row = std::get<0>(GetParam());
        m_Installation.WriteAt(Row.pszFile, strFile, test::CrashTime);
        const std::unique_ptr<Collection> pCollector = Row.Maker(Row.pszExecutable);
        pCollector->CollectVersion();
        pCollector->CollectInfo();
        pCollector->CollectLoginInfo();
        EXPECT_EQ(TextOf(*pCollector, Row.Which), Row.pszBefore + strValue + Row.pszBehind);
    }
};

TEST_P(Values, AreReadAsTheyStandUpToTheBuffersLength) {
    const auto& [Row, Text] = GetParam();
    ExpectField(
        std::string("[") + Row.pszSection + "]\r\n" + Row.pszOtherLines + Row.pszKey + "=" + Text.strText + "\r\n",
        Text.strText.substr(0, Row.uLongest));
}

constexpr const char* Edition = "versionName=zhcn\r\n";
constexpr const char* BrennLogin = "..\\userdata\\values\\login.ini";
constexpr const char* FyrnLogin = "UserData\\Temp\\dumpinfo.ini";
constexpr const char* GaldorLogin = "user\\setting.ini";
constexpr const char* EngineOptions = "..\\engineoptionsnap.ini";

const Key Keys[] = {
    {"DefaultVersion", Make<DefaultCollection>, "a.exe", "version.cfg", "Version", "version", "", Version, "", "_SVN"},
    {"DefaultVersionEx", Make<DefaultCollection>, "a.exe", "version.cfg", "Version", "versionex",
     "VersionLineName=-line\r\n", VersionEx, "", "-line"},
    {"DefaultLineName", Make<DefaultCollection>, "a.exe", "version.cfg", "Version", "VersionLineName",
     "versionex=ex-\r\n", VersionEx, "ex-", ""},
    {"GaldorVersion", Make<GaldorCollection>, "a.exe", "version.cfg", "Version", "version", "", Version, "", "_SVN"},
    {"BrennVersion", Make<BrennCollection>, "a.exe", "..\\version.cfg", "Version", "Tessel.version", "", Version, "",
     "_SVN"},
    {"BrennVersionEx", Make<BrennCollection>, "brennclient.exe", "..\\version.cfg", "Version", "Tessel.versionex",
     "Tessel.VersionCodeName=pakv4\r\nTessel.VersionLineName=-line\r\n", VersionEx, "pakv4_", "-line"},
    {"BrennLineName", Make<BrennCollection>, "brennclient.exe", "..\\version.cfg", "Version", "Tessel.VersionLineName",
     "Tessel.versionex=ex-\r\n", VersionEx, "ex-", ""},
    {"BrennShadow", Make<BrennCollection>, "a.exe", EngineOptions, "ZT3DENGINE", "nShadowType", "", Info1,
     "nShadowType=", ""},
    {"BrennFoliage", Make<BrennCollection>, "a.exe", EngineOptions, "ZT3DENGINE", "nFoliageDensity", "", Info2,
     "nFoliageDensity=", ""},
    {"BrennCamera", Make<BrennCollection>, "a.exe", EngineOptions, "ZT3DENGINE", "fCameraDistance", "", Info3,
     "fCameraDistance=", ""},
    {"BrennRole", Make<BrennCollection>, "a.exe", BrennLogin, "LastLogin", "RoleName", "", RoleName, "", ""},
    {"BrennRegion", Make<BrennCollection>, "a.exe", BrennLogin, "LastLogin", "RegionName", "", RegionName, "", ""},
    {"BrennServer", Make<BrennCollection>, "a.exe", BrennLogin, "LastLogin", "ServerName", "", ServerName, "", ""},
    {"EditorVersion", Make<EditorCollection>, "a.exe", "version.cfg", "Version", "version", "", Version, "", ""},
    {"EditorVersionEx", Make<EditorCollection>, "a.exe", "version.cfg", "Version", "versionName", "", VersionEx, "",
     ""},
    {"ToolVersion", Make<ToolCollection>, "a.exe", "version.cfg", "Version", "version", "", Version, "", ""},
    {"ToolVersionEx", Make<ToolCollection>, "a.exe", "version.cfg", "Version", "versionName", "", VersionEx, "", ""},
    {"IvorelVersion", Make<IvorelGameClientCollection>, "a.exe", "version.cfg", "Version", "version", "", Version, "",
     ""},
    {"IvorelVersionEx", Make<IvorelGameClientCollection>, "a.exe", "version.cfg", "Version", "versionName", "",
     VersionEx, "", ""},
    {"MendwellVersion", Make<MendwellCollection>, "a.exe", "version.cfg", "Version", "version", "", Version, "", ""},
    {"MendwellVersionEx", Make<MendwellCollection>, "a.exe", "version.cfg", "Version", "versionName", "", VersionEx, "",
     ""},
    {"DovekVersion", Make<DovekCollection>, "a.exe", "version.cfg", "Version", "version", "", Version, "", ""},
    {"DovekVersionEx", Make<DovekCollection>, "a.exe", "version.cfg", "Version", "VersionLineName", "", VersionEx, "",
     ""},
    {"CymraMajor", Make<CymraCollection>, "a.exe", "version.cfg", "game.exe", "MajorVersion", "CurVersion=7\r\n",
     Version, "", ".7_SVN"},
    {"CymraMinor", Make<CymraCollection>, "a.exe", "version.cfg", "game.exe", "CurVersion", "MajorVersion=7\r\n",
     Version, "7.", "_SVN", 1022},
    {"EssarnMajor", Make<EssarnCollection>, "a.exe", "version.cfg", "game.exe", "MajorVersion", "Version=7\r\n",
     Version, "", ".7"},
    {"EssarnMinor", Make<EssarnCollection>, "a.exe", "version.cfg", "game.exe", "Version", "MajorVersion=7\r\n",
     Version, "7.", "", 1022},
    {"OrvelMajor", Make<OrvelCollection>, "gamefree.exe", "version.cfg", "gamefree.exe", "MajorVersion",
     "Version=7\r\n", Version, "", ".7"},
    {"OrvelMinor", Make<OrvelCollection>, "gamefree_y.exe", "version.cfg", "gamefree_y.exe", "Version",
     "MajorVersion=7\r\n", Version, "7.", "", 1022},
    {"TalisMajor", Make<TalisCollection>, "talisonline.exe", "versionlist.cfg", "1", "MajorVersion",
     "Version=2\r\nClientVersion=3\r\n", Version, "", ".2.3"},
    {"TalisMinor", Make<TalisCollection>, "talisonlinefree.exe", "versionlist.cfg", "2", "Version",
     "MajorVersion=1\r\nClientVersion=3\r\n", Version, "1.", ".3"},
    {"TalisThird", Make<TalisCollection>, "talisvnewgame.exe", "versionlist.cfg", "1", "ClientVersion",
     "MajorVersion=1\r\nVersion=2\r\n", Version, "1.2.", ""},
    {"TalisGeneral", Make<TalisCollection>, "taliswz.exe", "versionlist.cfg", "1", "GeneralVersion",
     "MajorVersion=1\r\nVersion=2\r\n", Version, "1.2.", ""},
    {"TalisConfig", Make<TalisCollection>, "talisvgame.exe", "config.ini", "Version", "Version", "", Version, "", ""},
    {"HeskVersion", Make<HeskCollection>, "a.exe", "update.ini", "Version", "AppVersion", "", Version, "", ""},
    {"FyrnVersion", Make<FyrnCollection>, "fyrn.exe", "version.cfg", "Version", "version", Edition, Version, "", ""},
    {"FyrnEdition", Make<FyrnCollection>, "fyrn.exe", "version.cfg", "Version", "versionName", "", VersionEx, "", ""},
    {"FyrnTrialVersion", Make<FyrnCollection>, "fyrnexp.exe", "version_exp.cfg", "Version", "version", "", Version, "",
     ""},
    {"FyrnRole", Make<FyrnCollection>, "a.exe", FyrnLogin, "Main", "RoleName", "", RoleName, "", ""},
    {"FyrnAccount", Make<FyrnCollection>, "a.exe", FyrnLogin, "Main", "Account", "", Account, "", ""},
    {"FyrnRegion", Make<FyrnCollection>, "a.exe", FyrnLogin, "Main", "ZoneName", "", RegionName, "", ""},
    {"FyrnServer", Make<FyrnCollection>, "a.exe", FyrnLogin, "Main", "SvrName", "", ServerName, "", ""},
    {"GaldorAccount", Make<GaldorCollection>, "a.exe", GaldorLogin, "Login", "Account", "", Account, "", ""},
    {"GaldorRole", Make<GaldorCollection>, "a.exe", GaldorLogin, "Login", "RoleName", "", RoleName, "", ""},
    {"GaldorRegion", Make<GaldorCollection>, "a.exe", GaldorLogin, "Login", "RegionName", "", RegionName, "", ""},
    {"GaldorServer", Make<GaldorCollection>, "a.exe", GaldorLogin, "Login", "ServerName", "", ServerName, "", ""},
};

// The bytes of a text of code page 936; some end in bytes that are letters or signs elsewhere ('\\', '|', 'A').
constexpr const char* DoubleByte = "\xBB\xA8\xBC\xE4 \xD5\x5C\xD5\x7C\x81\x41 \xD3\xCE\xCF\xB7";

const Value Texts[] = {
    {"Short", "x.y z"},
    {"Empty", ""},
    {"Of1022", std::string(1022, 'a')},
    {"Of1023", std::string(1023, 'b')},
    {"Of1024", std::string(1024, 'c')},
    {"Of1500", std::string(1500, 'd')},
    {"DoubleByte", DoubleByte},
    {"OfFormats", "%s%n%d%%"},
};

INSTANTIATE_TEST_SUITE_P(, Values, testing::Combine(testing::ValuesIn(Keys), testing::ValuesIn(Texts)),
                         [](const auto& Info) {
                             return std::string(std::get<0>(Info.param).pszName) + std::get<1>(Info.param).pszName;
                         });

class MissingKeys : public test::CollectorTest, public testing::WithParamInterface<Key> {};

TEST_P(MissingKeys, AreEmptyValuesWithoutALine) {
    const Key& Row = GetParam();
    m_Installation.WriteAt(Row.pszFile, std::string("[") + Row.pszSection + "]\r\n" + Row.pszOtherLines,
                           test::CrashTime);
    const std::unique_ptr<Collection> pCollector = Row.Maker(Row.pszExecutable);
    pCollector->CollectInfo();
    pCollector->CollectLoginInfo();
    if (Row.Which == Version || Row.Which == VersionEx) {
        EXPECT_EQ(pCollector->CollectVersion(), 1);
    }
    EXPECT_EQ(TextOf(*pCollector, Row.Which), std::string(Row.pszBefore) + Row.pszBehind);
    EXPECT_THAT(Checks(), testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, MissingKeys, testing::ValuesIn(Keys),
                         [](const auto& Info) { return std::string(Info.param.pszName); });

}  // namespace
}  // namespace crashvane
