// A whole installation of every product: the report before and after, byte for byte, and the check lines in order.
#include <gmock/gmock.h>

#include <functional>

#include "collection/BrennCollection.h"
#include "collection/Installation.h"
#include "collection/Products.h"
#include "collection/ReportText.h"

namespace crashvane {
namespace {

using test::CheckError;
using test::ProcessError;
using test::ReportText;
using test::ReportValues;

struct InstalledFile {
    const char* pszName;
    const char* pszBytes;
    long long nAway = 0;  // seconds from the crash
};

struct Golden {
    const char* pszKey;
    std::function<std::unique_ptr<Collection>()> Maker;
    const char* pszExecutable;
    std::vector<InstalledFile> Files;
    bool bPakBelow = false;  // "Pak" in the current folder

    const char* pszVersion;
    const char* pszVersionEx;
    const char* pszThreadType = "thread type of the report";
    std::vector<const char*> CustomFiles;
    std::vector<const char*> CustomInfos;
    std::vector<std::string> Login = {"", "", "", ""};  // account, role, region, server
    std::vector<std::string> Lines;
    int nImageId = 135;
    bool bForceSend = false;
};

template <typename Class>
std::unique_ptr<Collection> Make() {
    return std::make_unique<Class>();
}

const std::string StepFailed = CheckError("nRetCode", "Collection::Init");

// Most products know neither a login nor a thread model.
const std::vector<std::string> NoLoginAndNoThreads = {StepFailed, StepFailed};

class GoldenInstallation : public test::CollectorTest, public testing::WithParamInterface<Golden> {
  protected:
    ReportValues After() const {
        ReportValues Values;
        Values.strProject = GetParam().pszKey;
        Values.strProductName = GetParam().pszExecutable;
        Values.strVersion = GetParam().pszVersion;
        Values.strVersionEx = GetParam().pszVersionEx;
        Values.strThreadType = GetParam().pszThreadType;
        Values.strBitType = "x64";
        for (const char* pszFile : GetParam().CustomFiles) {
            Values.CustomFiles.push_back(test::Installation::PathOf(pszFile));
        }
        Values.CustomInfos.assign(GetParam().CustomInfos.begin(), GetParam().CustomInfos.end());
        return Values;
    }
};

TEST_P(GoldenInstallation, CompletesTheReport) {
    for (const InstalledFile& File : GetParam().Files) {
        m_Installation.WriteAt(File.pszName, File.pszBytes, test::CrashTime + File.nAway);
    }
    if (GetParam().bPakBelow) {
        m_Installation.Current().MakeFolder("Pak");
    }
    ReportValues Before;
    Before.strProductName = GetParam().pszExecutable;
    const std::string strReport = m_Installation.Current().Write("CrashReport.xml", ReportText(Before));
    const std::unique_ptr<Collection> pCollector = GetParam().Maker();

    EXPECT_EQ(pCollector->Init(strReport, 0), 1);

    EXPECT_EQ(test::TempFolder::Read(strReport), ReportText(After()));
    EXPECT_EQ((std::vector{pCollector->m_strAccount, pCollector->m_strRoleName, pCollector->m_strRegionName,
                           pCollector->m_strServerName}),
              GetParam().Login);
    EXPECT_EQ(Checks(), GetParam().Lines);
    EXPECT_EQ(pCollector->GetProcessName(), "TheProcess.exe");
    EXPECT_EQ(pCollector->GetProjectImgId(), GetParam().nImageId);
    EXPECT_EQ(pCollector->IsForceSend(), GetParam().bForceSend);
}

constexpr const char* PlainVersionCfg =
    "[Version]\r\nversion=1.2\r\nversionex=ex\r\nversionName=name\r\nVersionLineName=line\r\n";
constexpr const char* DottedVersionCfg =
    "[game.exe]\r\nMajorVersion=2\r\nCurVersion=17\r\nVersion=18\r\n[gamefree_y.exe]\r\nMajorVersion=4\r\nVersion="
    "41\r\n";
constexpr const char* NearLog = "logs\\client\\near.log";
constexpr InstalledFile NearLogFile = {NearLog, "x", 5};
constexpr InstalledFile FarLogFile = {"logs\\client\\far.log", "x", -10};

const Golden Installations[] = {
    {.pszKey = "BRENN",
     .Maker = Make<BrennCollection>,
     .pszExecutable = "BRENNClient.exe",
     .Files = {{"..\\version.cfg",
                "[Version]\r\nTessel.version=1.0.0.5\r\nTessel.versionex=hd_\r\nTessel.VersionLineName=zhtw\r\n"
                "Tessel.VersionCodeName=pakv4\r\n"},
               {"..\\config.ini", "[Main]\r\nMultiThread=1\r\n"},
               {"..\\engineoptionsnap.ini",
                "[ZT3DENGINE]\r\nbEnableRC_ForwardRender=1\r\nnShadowType=3\r\nnFoliageDensity=80\r\n"
                "fCameraDistance=1200\r\n"},
               {"..\\userdata\\somebody\\login.ini",
                "[LastLogin]\r\nRoleName=hero\r\nRegionName=north\r\nServerName=first\r\n", -30},
               {"..\\logs\\client\\near.log", "x", 5},
               NearLogFile},
     .pszVersion = "1.0.0.5_SVN",
     .pszVersionEx = "pakv4_hd_zhtw",
     .pszThreadType = "MultiThread",
     .CustomFiles = {"..\\logs\\client\\near.log", "..\\config.ini"},
     .CustomInfos = {"bEnableRC_ForwardRender=1", "nShadowType=3", "nFoliageDensity=80", "fCameraDistance=1200"},
     .Login = {"somebody", "hero", "north", "first"},
     .Lines = {},
     .nImageId = 158},
    {.pszKey = "FYRN",
     .Maker = Make<FyrnCollection>,
     .pszExecutable = "Fyrn.exe",
     .Files = {{"version.cfg", "[Version]\r\nversion=6.6\r\nversionName=zhtw\r\n"},
               {"UserData\\Temp\\dumpinfo.ini", "[Main]\r\nRoleName=r\r\nAccount=a\r\nZoneName=z\r\nSvrName=s\r\n"},
               NearLogFile,
               FarLogFile},
     .pszVersion = "6.6",
     .pszVersionEx = "zhtw",
     .CustomFiles = {NearLog},
     .CustomInfos = {},
     .Login = {"a", "r", "z", "s"},
     .Lines = {StepFailed},
     .nImageId = 131},
    {.pszKey = "GALDOR",
     .Maker = Make<GaldorCollection>,
     .pszExecutable = "galdor.exe",
     .Files = {{"version.cfg", PlainVersionCfg},
               {"config.ini", "[Main]\r\n"},
               {"user\\setting.ini", "[Login]\r\nAccount=a\r\nRoleName=r\r\nRegionName=z\r\nServerName=s\r\n"},
               NearLogFile,
               {"log\\engine\\e.log", "x", 100}},
     .bPakBelow = true,
     .pszVersion = "1.2_PAK",
     .pszVersionEx = "exline",
     .CustomFiles = {NearLog, "log\\engine\\e.log", "config.ini"},
     .CustomInfos = {},
     .Login = {"a", "r", "z", "s"},
     .Lines = {StepFailed},
     .nImageId = 132,
     .bForceSend = true},
    {.pszKey = "CYMRA",
     .Maker = Make<CymraCollection>,
     .pszExecutable = "GameXP.exe",
     .Files = {{"version.cfg", DottedVersionCfg}, NearLogFile},
     .bPakBelow = true,
     .pszVersion = "2.17_PAK",
     .pszVersionEx = "zhcn-exp",
     .CustomFiles = {NearLog},
     .CustomInfos = {},
     .Lines = NoLoginAndNoThreads,
     .nImageId = 136},
    {.pszKey = "HESK",
     .Maker = Make<HeskCollection>,
     .pszExecutable = "hesk.exe",
     .Files = {{"update.ini", "[Version]\r\nAppVersion=3.3.1\r\n"}, NearLogFile},
     .pszVersion = "3.3.1",
     .pszVersionEx = "zhcn",
     .CustomFiles = {NearLog},
     .CustomInfos = {},
     .Lines = NoLoginAndNoThreads,
     .nImageId = 144},
    {.pszKey = "ORVEL",
     .Maker = Make<OrvelCollection>,
     .pszExecutable = "GameFree_Y.exe",
     .Files = {{"version.cfg", DottedVersionCfg}, NearLogFile},
     .pszVersion = "4.41",
     .pszVersionEx = "vnib",
     .CustomFiles = {NearLog},
     .CustomInfos = {},
     .Lines = NoLoginAndNoThreads,
     .nImageId = 157},
    {.pszKey = "XX",
     .Maker = Make<XXCollection>,
     .pszExecutable = "xx.exe",
     .Files = {NearLogFile},
     .pszVersion = "0.00",
     .pszVersionEx = "zhcn",
     .CustomFiles = {NearLog},
     .CustomInfos = {},
     .Lines = NoLoginAndNoThreads,
     .nImageId = 153},
    {.pszKey = "TALIS",
     .Maker = Make<TalisCollection>,
     .pszExecutable = "TalisWZ.exe",
     .Files = {{"versionlist.cfg", "[1]\r\nMajorVersion=1\r\nVersion=2\r\nClientVersion=3\r\nGeneralVersion=4\r\n"},
               NearLogFile},
     .pszVersion = "1.2.4",
     .pszVersionEx = "wzzhcn",
     .CustomFiles = {NearLog},
     .CustomInfos = {},
     .Lines = NoLoginAndNoThreads,
     .nImageId = 154},
    {.pszKey = "TOOL",
     .Maker = Make<ToolCollection>,
     .pszExecutable = "tool.exe",
     .Files = {{"version.cfg", PlainVersionCfg}, NearLogFile},
     .pszVersion = "1.2",
     .pszVersionEx = "name",
     .CustomFiles = {NearLog},
     .CustomInfos = {},
     .Lines = NoLoginAndNoThreads},
    {.pszKey = "DOVEK",
     .Maker = Make<DovekCollection>,
     .pszExecutable = "dovek.exe",
     .Files = {{"version.cfg", PlainVersionCfg}, NearLogFile},
     .pszVersion = "1.2",
     .pszVersionEx = "line",
     .CustomFiles = {NearLog},
     .CustomInfos = {},
     .Lines = NoLoginAndNoThreads},
    {.pszKey = "ESSARN",
     .Maker = Make<EssarnCollection>,
     .pszExecutable = "essarn.exe",
     .Files = {{"version.cfg", DottedVersionCfg}, NearLogFile},
     .pszVersion = "2.18",
     .pszVersionEx = "zhcn",
     .CustomFiles = {NearLog},
     .CustomInfos = {},
     .Lines = NoLoginAndNoThreads},
    {.pszKey = "EDITOR",
     .Maker = Make<EditorCollection>,
     .pszExecutable = "editor.exe",
     .Files = {{"version.cfg", PlainVersionCfg}, NearLogFile},
     .pszVersion = "1.2",
     .pszVersionEx = "name",
     .CustomFiles = {NearLog},
     .CustomInfos = {},
     .Lines = NoLoginAndNoThreads},
    {.pszKey = "IVORELGAMECLIENT",
     .Maker = Make<IvorelGameClientCollection>,
     .pszExecutable = "ivorel.exe",
     .Files = {{"version.cfg", PlainVersionCfg}, NearLogFile},
     .pszVersion = "1.2",
     .pszVersionEx = "name",
     .CustomFiles = {NearLog},
     .CustomInfos = {},
     .Lines = NoLoginAndNoThreads},
    {.pszKey = "MENDWELL",
     .Maker = Make<MendwellCollection>,
     .pszExecutable = "Mendwell.exe",
     .Files = {{"version.cfg", PlainVersionCfg}, NearLogFile, {"logs\\Mendwell\\today\\m.log", "x", -60}},
     .pszVersion = "1.2",
     .pszVersionEx = "name",
     .CustomFiles = {"logs\\Mendwell\\today\\m.log"},
     .CustomInfos = {},
     .Lines = NoLoginAndNoThreads},
    {.pszKey = "QRL",
     .Maker = Make<DefaultCollection>,
     .pszExecutable = "whatever.exe",
     .Files = {{"version.cfg", PlainVersionCfg}, NearLogFile, FarLogFile},
     .pszVersion = "1.2_SVN",
     .pszVersionEx = "exline",
     .CustomFiles = {NearLog},
     .CustomInfos = {},
     .Lines = NoLoginAndNoThreads},
};

INSTANTIATE_TEST_SUITE_P(, GoldenInstallation, testing::ValuesIn(Installations),
                         [](const auto& Info) { return std::string(Info.param.pszKey); });

const std::string NoLogs = ProcessError("nRetCode", "Collection::CollectLog");

Golden WithoutFiles(const char* pszKey, std::function<std::unique_ptr<Collection>()> Maker, const char* pszVersionEx,
                    const std::vector<std::string>& VersionLines, int nImageId = 135) {
    Golden Row = {.pszKey = pszKey,
                  .Maker = std::move(Maker),
                  .pszExecutable = "game.exe",
                  .Files = {},
                  .pszVersion = "version of the report",
                  .pszVersionEx = pszVersionEx,
                  .CustomFiles = {},
                  .CustomInfos = {},
                  .Lines = VersionLines,
                  .nImageId = nImageId};
    for (const std::string& strLine : {NoLogs, StepFailed, StepFailed, StepFailed}) {
        Row.Lines.push_back(strLine);
    }
    return Row;
}

std::vector<std::string> MissingIn(const char* pszFunction) {
    return {ProcessError("nRetCode", pszFunction), StepFailed};
}

// Nothing is installed: what the report says stays, and every missing thing has its line.
std::vector<Golden> EmptyFolders() {
    constexpr const char* OfTheReport = "version ex of the report";
    std::vector<Golden> Rows = {
        WithoutFiles("BRENN", Make<BrennCollection>, OfTheReport, MissingIn("BrennCollection::CollectVersion"), 130),
        WithoutFiles("FYRN", Make<FyrnCollection>, "other", {}, 131),
        WithoutFiles("GALDOR", Make<GaldorCollection>, OfTheReport, MissingIn("Collection::CollectVersion"), 132),
        WithoutFiles("CYMRA", Make<CymraCollection>, "zhcn", MissingIn("CymraCollection::CollectVersion"), 136),
        WithoutFiles("HESK", Make<HeskCollection>, "zhcn", MissingIn("HeskCollection::CollectVersion"), 144),
        WithoutFiles("ORVEL", Make<OrvelCollection>, "pricingzhcn", MissingIn("OrvelCollection::CollectVersion"), 146),
        WithoutFiles("XX", Make<XXCollection>, "zhcn", {}, 153),
        WithoutFiles("TALIS", Make<TalisCollection>, "", {}, 154),
        WithoutFiles("TOOL", Make<ToolCollection>, "", {ProcessError("nRetCode", "ToolCollection::GetVersionExA")}),
        WithoutFiles("DOVEK", Make<DovekCollection>, "", {ProcessError("nRetCode", "DovekCollection::GetVersionExA")}),
        WithoutFiles("ESSARN", Make<EssarnCollection>, "zhcn", {}),
        WithoutFiles("EDITOR", Make<EditorCollection>, "",
                     {ProcessError("nRetCode", "EditorCollection::GetVersionExA")}),
        WithoutFiles("IVORELGAMECLIENT", Make<IvorelGameClientCollection>, "",
                     {ProcessError("nRetCode", "IvorelGameClientCollection::GetVersionExA")}),
        WithoutFiles("MENDWELL", Make<MendwellCollection>, "",
                     {ProcessError("nRetCode", "MendwellCollection::GetVersionExA")}),
        WithoutFiles("QRL", Make<DefaultCollection>, OfTheReport, MissingIn("Collection::CollectVersion")),
    };
    Golden& Brenn = Rows[0];
    Brenn.pszThreadType = "SingleThread";
    Brenn.CustomInfos = {"engineoptionsnap.ini is not found"};
    // Its thread type is told without a file; the banner's check comes with the dialog.
    Brenn.Lines.pop_back();
    Golden& Galdor = Rows[2];
    Galdor.bForceSend = true;
    // Two log folders are missing.
    Galdor.Lines.insert(Galdor.Lines.begin() + 2, NoLogs);
    Golden& XX = Rows[6];
    XX.pszVersion = "0.00";
    return Rows;
}

INSTANTIATE_TEST_SUITE_P(OfNothing, GoldenInstallation, testing::ValuesIn(EmptyFolders()),
                         [](const auto& Info) { return std::string(Info.param.pszKey); });

}  // namespace
}  // namespace crashvane
