#include "driver/Config.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <fstream>
#include <string>

#include "driver/Arguments.h"
#include "support/LogCapture.h"

namespace crashvane {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::StartsWith;

constexpr const char SERVER[] = "http://" CRASHVANE_SERVER_HOST;

std::string Here(const std::string& strName) {
    char szFolder[MAX_PATH] = {};
    GetCurrentDirectoryA(sizeof(szFolder), szFolder);
    return std::string(szFolder) + "\\" + strName;
}

// A settings file in the current folder, deleted at the end.
class SettingsFile {
  public:
    explicit SettingsFile(const std::string& strContent) { std::ofstream(Path(), std::ios::binary) << strContent; }
    SettingsFile(const SettingsFile&) = delete;
    SettingsFile& operator=(const SettingsFile&) = delete;
    ~SettingsFile() { DeleteFileA(Path().c_str()); }
    [[nodiscard]] static std::string Path() { return Here("settings.cfg"); }
};

// A config with the built-in addresses, filled from the command line.
struct Loaded {
    Config Settings;
    int nResult = 0;

    Loaded(std::initializer_list<std::string> Texts) {
        Arguments Given(Texts);
        Settings.SetDefaults();
        nResult = Settings.LoadCmd(Given.Count(), Given.Vector());
    }
};

auto CheckLine(const std::string& strCondition, const std::string& strFunction) {
    return testing::AllOf(StartsWith("ZTLOG_PROCESS_ERROR(" + strCondition + ") at line "),
                          testing::EndsWith(" in " + strFunction));
}

TEST(ConfigDefaults, AreTheSixAddressesOnTheBuildsServer) {
    Config Settings;
    Settings.SetDefaults();
    EXPECT_EQ(Settings.m_strDumpFileUrl, std::string(SERVER) + "/dumpserver/dumpfile.php");
    EXPECT_EQ(Settings.m_strDumpInfoUrl, std::string(SERVER) + "/dumpserver/dumpinfo.php");
    EXPECT_EQ(Settings.m_strPlayerLoginUrl, std::string(SERVER) + "/dumpserver/playerloginbase.php");
    EXPECT_EQ(Settings.m_strSessionUrl, std::string(SERVER) + "/dumpserver/dumpsession.php");
    EXPECT_EQ(Settings.m_strDumpSolutionUrl, std::string(SERVER) + "/dump_api/get_solution");
    EXPECT_EQ(Settings.m_strDumpTypeUrl, std::string(SERVER) + "/dump_api/get_dump_type");
    EXPECT_THAT(Settings.m_strProject, IsEmpty());
}

TEST(ConfigLoadCmd, FailsWithoutArguments) {
    const LogCapture Log;
    const Loaded Given({});
    EXPECT_EQ(Given.nResult, 0);
    EXPECT_THAT(Log.Lines(), ElementsAre(CheckLine("argc > 1", "Config::LoadCmd")));
}

TEST(ConfigLoadCmd, FailsWithoutAVector) {
    const LogCapture Log;
    Config Settings;
    EXPECT_EQ(Settings.LoadCmd(2, nullptr), 0);
    EXPECT_THAT(Log.Lines(), ElementsAre(CheckLine("argv", "Config::LoadCmd")));
}

TEST(ConfigLoadCmd, FailsOnANullValue) {
    char szProgram[] = "Crashvane.exe";
    char szOption[] = "-f";
    char* Vector[] = {szProgram, szOption, nullptr};
    const LogCapture Log;
    Config Settings;
    ResetOptions();
    EXPECT_EQ(Settings.LoadCmd(3, Vector), 0);
    EXPECT_THAT(Log.Lines(), ElementsAre(CheckLine("optarg", "Config::LoadCmd")));
}

TEST(ConfigLoadCmd, TakesEveryOption) {
    const Loaded Given({"-f", "report.xml", "-p", "BRENN", "-abdm", "-r", "C:\\Game\\Game.exe", "-c", "-window -x 1"});
    EXPECT_EQ(Given.nResult, 1);
    EXPECT_EQ(Given.Settings.m_strCrashReportFile, "report.xml");
    EXPECT_EQ(Given.Settings.m_strProject, "BRENN");
    EXPECT_EQ(Given.Settings.m_bProjectFromCmd, 1);
    EXPECT_EQ(Given.Settings.m_bSendActiveMachine, 1);
    EXPECT_EQ(Given.Settings.m_bBatchMode, 1);
    EXPECT_EQ(Given.Settings.m_bSendDump, 1);
    EXPECT_EQ(Given.Settings.IsSendDump(), 1);
    EXPECT_EQ(Given.Settings.m_bSendSession, 1);
    EXPECT_EQ(Given.Settings.m_strRestartApp, "C:\\Game\\Game.exe");
    EXPECT_EQ(Given.Settings.m_strRestartCmdLine, "-window -x 1");
}

TEST(ConfigLoadCmd, LeavesTheFlagsOffThatAreNotGiven) {
    const Loaded Given({"-f", "report.xml"});
    EXPECT_EQ(Given.nResult, 1);
    EXPECT_EQ(Given.Settings.m_bSendActiveMachine, 0);
    EXPECT_EQ(Given.Settings.m_bBatchMode, 0);
    EXPECT_EQ(Given.Settings.IsSendDump(), 0);
    EXPECT_EQ(Given.Settings.m_bSendSession, 0);
    EXPECT_EQ(Given.Settings.m_bProjectFromCmd, 0);
}

TEST(ConfigLoadCmd, SwitchesTheFlagsOffFirst) {
    Config Settings;
    Settings.m_bSendActiveMachine = Settings.m_bBatchMode = Settings.m_bSendDump = Settings.m_bSendSession = 1;
    Settings.m_bProjectFromCmd = 1;
    Settings.m_bSendSystemException = 1;
    Arguments Given({"-f", "report.xml"});
    EXPECT_EQ(Settings.LoadCmd(Given.Count(), Given.Vector()), 1);
    EXPECT_EQ(Settings.m_bSendActiveMachine, 0);
    EXPECT_EQ(Settings.m_bBatchMode, 0);
    EXPECT_EQ(Settings.m_bSendDump, 0);
    EXPECT_EQ(Settings.m_bSendSession, 0);
    EXPECT_EQ(Settings.m_bProjectFromCmd, 0);
    EXPECT_EQ(Settings.m_bSendSystemException, 1);
}

TEST(ConfigLoadCmd, TakesTheSettingsFileBesideTheProgramByDefault) {
    const Loaded Given({"-f", "report.xml", "-p", "BRENN"});
    char szProgram[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, szProgram, sizeof(szProgram));
    std::string strExpected = szProgram;
    strExpected.replace(strExpected.rfind('\\') + 1, std::string::npos, "Crashvane.cfg");
    EXPECT_EQ(Given.Settings.m_strConfigFile, strExpected);
}

TEST(ConfigLoadCmd, KeepsTheDefaultAddresses) {
    const Loaded Given({"-f", "report.xml", "-p", "BRENN"});
    EXPECT_EQ(Given.Settings.m_strDumpFileUrl, std::string(SERVER) + "/dumpserver/dumpfile.php");
    EXPECT_EQ(Given.Settings.m_strSessionUrl, std::string(SERVER) + "/dumpserver/dumpsession.php");
}

TEST(ConfigLoadCmd, MakesTheSettingsFilesPathAbsolute) {
    const Loaded Given({"-f", "report.xml", "-s", "sub\\..\\my.cfg"});
    EXPECT_EQ(Given.Settings.m_strConfigFile, Here("my.cfg"));
}

TEST(ConfigLoadCmd, FallsBackToTheDefaultForASettingsPathThatIsTooLong) {
    const Loaded Given({"-f", "report.xml", "-s", "C:\\" + std::string(300, 'a')});
    EXPECT_EQ(Given.nResult, 1);
    EXPECT_THAT(Given.Settings.m_strConfigFile, testing::EndsWith("\\Crashvane.cfg"));
}

TEST(ConfigLoadCmd, LetsTheLastOfARepeatedOptionWin) {
    const Loaded Given({"-f", "a.xml", "-p", "BRENN", "-f", "b.xml", "-p", "TOOL"});
    EXPECT_EQ(Given.Settings.m_strCrashReportFile, "b.xml");
    EXPECT_EQ(Given.Settings.m_strProject, "TOOL");
}

TEST(ConfigLoadCmd, GoesOnBehindAnUnknownOption) {
    const StandardErrorCapture Errors;
    const LogCapture Log;
    const Loaded Given({"-x", "-f", "a.xml"});
    EXPECT_EQ(Given.nResult, 1);
    EXPECT_EQ(Given.Settings.m_strCrashReportFile, "a.xml");
    EXPECT_EQ(Errors.Text(), "Error in argument 1, char 2: option not found x\n");
    EXPECT_THAT(Log.Lines(), IsEmpty());
}

TEST(ConfigLoadCmd, FailsOnAReportOptionWithoutAPath) {
    const StandardErrorCapture Errors;
    const LogCapture Log;
    const Loaded Given({"-d", "-f"});
    EXPECT_EQ(Given.nResult, 0);
    EXPECT_EQ(Errors.Text(), "Error in argument 2, char 2: no argument for option f\n");
    EXPECT_THAT(Log.Lines(), ElementsAre(CheckLine("!m_strCrashReportFile.empty()", "Config::LoadCmd")));
    EXPECT_EQ(Given.Settings.m_bSendDump, 1);
}

TEST(ConfigLoadCmd, FailsWhenTheFirstArgumentIsNoOption) {
    const LogCapture Log;
    const Loaded Given({"a.xml", "-f", "b.xml"});
    EXPECT_EQ(Given.nResult, 0);
    EXPECT_THAT(Given.Settings.m_strCrashReportFile, IsEmpty());
    EXPECT_THAT(Log.Lines(), ElementsAre(CheckLine("!m_strCrashReportFile.empty()", "Config::LoadCmd")));
}

TEST(ConfigLoadCmd, KeepsWhatAHyphenedValueSays) {
    const Loaded Given({"-f", "-d", "-b"});
    EXPECT_EQ(Given.Settings.m_strCrashReportFile, "-d");
    EXPECT_EQ(Given.Settings.m_bSendDump, 0);
    EXPECT_EQ(Given.Settings.m_bBatchMode, 1);
}

TEST(ConfigLoadCmd, TakesThirtyThousandCharacters) {
    const std::string strLong(30000, 'x');
    const Loaded Given({"-f", "report.xml", "-c", strLong});
    EXPECT_EQ(Given.nResult, 1);
    EXPECT_EQ(Given.Settings.m_strRestartCmdLine, strLong);
}

TEST(ConfigLoadSetting, FailsForAMissingFile) {
    const LogCapture Log;
    Config Settings;
    EXPECT_EQ(Settings.LoadSetting(Here("no_such.cfg")), 0);
    EXPECT_THAT(Log.Lines(), ElementsAre(CheckLine("nRetCode", "Config::LoadSetting")));
}

TEST(ConfigLoadSetting, FailsForAFolder) {
    const std::string strFolder = Here("folder.cfg");
    CreateDirectoryA(strFolder.c_str(), nullptr);
    const LogCapture Log;
    Config Settings;
    EXPECT_EQ(Settings.LoadSetting(strFolder), 0);
    EXPECT_THAT(Log.Lines(), ElementsAre(CheckLine("nRetCode", "Config::LoadSetting")));
    RemoveDirectoryA(strFolder.c_str());
}

TEST(ConfigLoadSetting, FailsForAnEmptyFile) {
    const SettingsFile File("");
    const LogCapture Log;
    Config Settings;
    EXPECT_EQ(Settings.LoadSetting(SettingsFile::Path()), 0);
    EXPECT_THAT(Log.Lines(), ElementsAre(CheckLine("!m_strProject.empty()", "Config::LoadSetting")));
}

TEST(ConfigLoadSetting, FailsWithoutAProject) {
    const SettingsFile File("[Crashvane]\r\nDumpInfoUrl=http://a/info\r\n");
    const LogCapture Log;
    Config Settings;
    EXPECT_EQ(Settings.LoadSetting(SettingsFile::Path()), 0);
    EXPECT_THAT(Log.Lines(), ElementsAre(CheckLine("!m_strProject.empty()", "Config::LoadSetting")));
    EXPECT_EQ(Settings.m_strDumpInfoUrl, "http://a/info");
}

TEST(ConfigLoadSetting, ReadsEveryKey) {
    const SettingsFile File(
        "[Crashvane]\r\nSendSystemException=0\r\nDumpFileUrl=http://a/1\r\nDumpInfoUrl=http://a/2\r\n"
        "PlayerLoginUrl=http://a/3\r\nSessionUrl=http://a/4\r\nDumpSolutionUrl=http://a/5\r\n"
        "DumpTypeUrl=http://a/6\r\nProject=FYRN\r\n");
    Config Settings;
    Settings.SetDefaults();
    EXPECT_EQ(Settings.LoadSetting(SettingsFile::Path()), 1);
    EXPECT_EQ(Settings.m_bSendSystemException, 0);
    EXPECT_EQ(Settings.m_strDumpFileUrl, "http://a/1");
    EXPECT_EQ(Settings.m_strDumpInfoUrl, "http://a/2");
    EXPECT_EQ(Settings.m_strPlayerLoginUrl, "http://a/3");
    EXPECT_EQ(Settings.m_strSessionUrl, "http://a/4");
    EXPECT_EQ(Settings.m_strDumpSolutionUrl, "http://a/5");
    EXPECT_EQ(Settings.m_strProject, "FYRN");
    EXPECT_EQ(Settings.m_bProjectFromCmd, 0);
    // The address of the solution query has no key.
    EXPECT_EQ(Settings.m_strDumpTypeUrl, std::string(SERVER) + "/dump_api/get_dump_type");
}

TEST(ConfigLoadSetting, FillsMissingKeysWithTheDefaults) {
    const SettingsFile File("[Crashvane]\r\nProject=BRENN\r\n");
    Config Settings;
    EXPECT_EQ(Settings.LoadSetting(SettingsFile::Path()), 1);
    EXPECT_EQ(Settings.m_bSendSystemException, 1);
    EXPECT_EQ(Settings.m_strDumpFileUrl, std::string(SERVER) + "/dumpserver/dumpfile.php");
    EXPECT_EQ(Settings.m_strDumpInfoUrl, std::string(SERVER) + "/dumpserver/dumpinfo.php");
    EXPECT_EQ(Settings.m_strPlayerLoginUrl, std::string(SERVER) + "/dumpserver/playerloginbase.php");
    EXPECT_EQ(Settings.m_strSessionUrl, std::string(SERVER) + "/dumpserver/dumpsession.php");
    EXPECT_EQ(Settings.m_strDumpSolutionUrl, std::string(SERVER) + "/dump_api/get_solution");
}

TEST(ConfigLoadSetting, TakesAnyNumberButZeroForYes) {
    Config Settings;
    for (const auto& [pszValue, nExpected] :
         {std::pair("7", 1), std::pair("-1", 1), std::pair("0", 0), std::pair("no", 0)}) {
        const SettingsFile File(std::string("[Crashvane]\r\nProject=A\r\nSendSystemException=") + pszValue + "\r\n");
        EXPECT_EQ(Settings.LoadSetting(SettingsFile::Path()), 1);
        EXPECT_EQ(Settings.m_bSendSystemException, nExpected) << pszValue;
    }
}

struct EmptyKey {
    const char* pszKey;
    const char* pszMember;
};

class ConfigEmptyKey : public testing::TestWithParam<EmptyKey> {};

TEST_P(ConfigEmptyKey, FailsWithTheKeysOwnCheck) {
    const SettingsFile File(std::string("[Crashvane]\r\nProject=A\r\n") + GetParam().pszKey + "=\r\n");
    const LogCapture Log;
    Config Settings;
    EXPECT_EQ(Settings.LoadSetting(SettingsFile::Path()), 0);
    EXPECT_THAT(Log.Lines(),
                ElementsAre(CheckLine(std::string("!") + GetParam().pszMember + ".empty()", "Config::LoadSetting")));
}

INSTANTIATE_TEST_SUITE_P(Keys, ConfigEmptyKey,
                         testing::Values(EmptyKey{"DumpFileUrl", "m_strDumpFileUrl"},
                                         EmptyKey{"DumpInfoUrl", "m_strDumpInfoUrl"},
                                         EmptyKey{"PlayerLoginUrl", "m_strPlayerLoginUrl"},
                                         EmptyKey{"SessionUrl", "m_strSessionUrl"},
                                         EmptyKey{"DumpSolutionUrl", "m_strDumpSolutionUrl"}),
                         [](const auto& Info) { return Info.param.pszKey; });

TEST(ConfigLoadSetting, ReadsNoLaterKeyBehindAnEmptyOne) {
    const SettingsFile File(
        "[Crashvane]\r\nDumpFileUrl=http://a/1\r\nDumpInfoUrl=\r\nPlayerLoginUrl=http://a/3\r\nProject=A\r\n");
    Config Settings;
    Settings.SetDefaults();
    EXPECT_EQ(Settings.LoadSetting(SettingsFile::Path()), 0);
    EXPECT_EQ(Settings.m_strDumpFileUrl, "http://a/1");
    EXPECT_THAT(Settings.m_strDumpInfoUrl, IsEmpty());
    EXPECT_EQ(Settings.m_strPlayerLoginUrl, std::string(SERVER) + "/dumpserver/playerloginbase.php");
    EXPECT_THAT(Settings.m_strProject, IsEmpty());
}

TEST(ConfigLoadSetting, Reads1023CharactersAndCutsTheNext) {
    const std::string strUrl = "http://a/" + std::string(1014, 'u');
    Config Settings;
    {
        const SettingsFile File("[Crashvane]\r\nDumpFileUrl=" + strUrl + "\r\nProject=A\r\n");
        EXPECT_EQ(Settings.LoadSetting(SettingsFile::Path()), 1);
        EXPECT_EQ(Settings.m_strDumpFileUrl, strUrl);
    }
    const SettingsFile File("[Crashvane]\r\nDumpFileUrl=" + strUrl + "z\r\nProject=A\r\n");
    EXPECT_EQ(Settings.LoadSetting(SettingsFile::Path()), 1);
    EXPECT_EQ(Settings.m_strDumpFileUrl, strUrl);
}

TEST(ConfigLoadSetting, SurvivesBinaryContent) {
    std::string strContent;
    for (int nByte = 0; nByte < 4096; ++nByte) {
        strContent.push_back(static_cast<char>(nByte * 37));
    }
    const SettingsFile File(strContent);
    const LogCapture Log;
    Config Settings;
    EXPECT_EQ(Settings.LoadSetting(SettingsFile::Path()), 0);
    EXPECT_THAT(Log.Lines(), ElementsAre(CheckLine("!m_strProject.empty()", "Config::LoadSetting")));
}

TEST(ConfigInit, ReadsTheSettingsFileThatTheOptionNames) {
    const SettingsFile File("[Crashvane]\r\nProject=GALDOR\r\n");
    const LogCapture Log;
    Config Settings;
    Arguments Given({"-f", "report.xml", "-s", "settings.cfg"});
    EXPECT_EQ(Settings.Init(Given.Count(), Given.Vector()), 1);
    EXPECT_EQ(Settings.m_strProject, "GALDOR");
    EXPECT_THAT(Log.Lines(), IsEmpty());
}

TEST(ConfigInit, OpensNoSettingsFileWhenTheCommandLineNamesTheProject) {
    const SettingsFile File("[Crashvane]\r\nProject=GALDOR\r\nDumpFileUrl=http://a/1\r\nSendSystemException=1\r\n");
    // Whoever opened it now would fail.
    const HANDLE hFile = CreateFileA(SettingsFile::Path().c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(hFile, INVALID_HANDLE_VALUE);
    Config Settings;
    Settings.SetDefaults();
    Arguments Given({"-f", "report.xml", "-s", "settings.cfg", "-p", "BRENN"});
    EXPECT_EQ(Settings.Init(Given.Count(), Given.Vector()), 1);
    CloseHandle(hFile);
    EXPECT_EQ(Settings.m_strProject, "BRENN");
    EXPECT_EQ(Settings.m_strConfigFile, Here("settings.cfg"));
    EXPECT_EQ(Settings.m_strDumpFileUrl, std::string(SERVER) + "/dumpserver/dumpfile.php");
    EXPECT_EQ(Settings.m_bSendSystemException, 0);
}

TEST(ConfigInit, FailsWithoutASettingsFileBesideTheProgram) {
    const LogCapture Log;
    Config Settings;
    Arguments Given({"-f", "report.xml"});
    EXPECT_EQ(Settings.Init(Given.Count(), Given.Vector()), 0);
    EXPECT_THAT(Log.Lines(),
                ElementsAre(CheckLine("nRetCode", "Config::LoadSetting"), CheckLine("nRetCode", "Config::Init")));
}

TEST(ConfigInit, LogsItsOwnLineBehindTheCommandLines) {
    const LogCapture Log;
    Config Settings;
    Arguments Given({"-b"});
    EXPECT_EQ(Settings.Init(Given.Count(), Given.Vector()), 0);
    EXPECT_THAT(Log.Lines(), ElementsAre(CheckLine("!m_strCrashReportFile.empty()", "Config::LoadCmd"),
                                         CheckLine("nRetCode", "Config::Init")));
}

TEST(ConfigInit, KeepsTheReportsPathWhenTheSettingsFail) {
    Config Settings;
    Arguments Given({"-f", "report.xml", "-s", "no_such.cfg"});
    EXPECT_EQ(Settings.Init(Given.Count(), Given.Vector()), 0);
    EXPECT_EQ(Settings.m_strCrashReportFile, "report.xml");
}

TEST(ConfigClear, EmptiesTextsAndFlags) {
    Config Settings;
    Settings.SetDefaults();
    Arguments Given({"-f", "report.xml", "-p", "BRENN", "-abdm", "-r", "Game.exe", "-c", "-w"});
    EXPECT_EQ(Settings.Init(Given.Count(), Given.Vector()), 1);
    Settings.Clear();
    EXPECT_THAT(Settings.m_strCrashReportFile + Settings.m_strConfigFile + Settings.m_strProject, IsEmpty());
    EXPECT_THAT(Settings.m_strDumpFileUrl + Settings.m_strDumpInfoUrl + Settings.m_strPlayerLoginUrl, IsEmpty());
    EXPECT_THAT(Settings.m_strSessionUrl + Settings.m_strDumpSolutionUrl + Settings.m_strDumpTypeUrl, IsEmpty());
    EXPECT_THAT(Settings.m_strRestartApp + Settings.m_strRestartCmdLine, IsEmpty());
    EXPECT_EQ(Settings.m_bBatchMode + Settings.m_bSendActiveMachine + Settings.m_bSendSystemException, 0);
    EXPECT_EQ(Settings.m_bSendDump + Settings.m_bSendSession + Settings.m_bProjectFromCmd, 0);
}

}  // namespace
}  // namespace crashvane
