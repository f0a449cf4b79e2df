// The program in other folders than the test program's: a copy of it runs there and does the looking itself, since a
// process keeps its program folder for life.
#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>

#include "collection/BrennCollection.h"
#include "collection/Installation.h"
#include "collection/Products.h"

namespace crashvane {
namespace {

using test::CrashTime;
using test::ProcessError;
using testing::ElementsAre;
using testing::IsEmpty;

class ProgramFolder : public testing::Test {
  protected:
    static constexpr const char* Mark = "CRASHVANE_TEST_PROGRAM_COPY";

    static bool IsCopy() { return std::getenv(Mark) != nullptr; }

    // Runs this very test in a copy of the program, and takes its outcome for ours.
    void RunCopyIn(const std::string& strFolder, const std::string& strProgram = "copy.exe") {
        const std::string strCopy = strFolder + "\\" + strProgram;
        char szSelf[MAX_PATH] = {};
        GetModuleFileNameA(nullptr, szSelf, MAX_PATH);
        std::filesystem::create_directories(test::OnDisk(strFolder));
        ASSERT_TRUE(CopyFileA(szSelf, strCopy.c_str(), FALSE)) << strCopy;

        const testing::TestInfo* pTest = testing::UnitTest::GetInstance()->current_test_info();
        std::string strCommand = "\"" + strCopy + "\" --gtest_filter=" + pTest->test_suite_name() + "." + pTest->name();
        STARTUPINFOA Startup = {};
        Startup.cb = sizeof(Startup);
        PROCESS_INFORMATION Process = {};
        SetEnvironmentVariableA(Mark, "1");
        const BOOL bStarted = CreateProcessA(strCopy.c_str(), strCommand.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                             nullptr, &Startup, &Process);
        SetEnvironmentVariableA(Mark, nullptr);
        ASSERT_TRUE(bStarted) << strCopy;
        WaitForSingleObject(Process.hProcess, INFINITE);
        DWORD dwExitCode = 1;
        GetExitCodeProcess(Process.hProcess, &dwExitCode);
        CloseHandle(Process.hThread);
        CloseHandle(Process.hProcess);
        EXPECT_EQ(dwExitCode, 0u) << "the copy says above what failed";
    }

    // What every product of such a folder must find.
    static void ExpectEverythingFound() {
        test::Installation Installed;
        const LogCapture Log;
        Installed.Write("version.cfg", "[Version]\r\nversion=1\r\nversionName=n\r\n");
        Installed.Write("..\\version.cfg", "[Version]\r\nTessel.version=2\r\nTessel.VersionLineName=zhkr\r\n");
        const std::string strLog = Installed.WriteAt("logs\\a b\\x.log", "", CrashTime);
        Installed.WriteAt("..\\userdata\\some body\\login.ini", "[LastLogin]\r\nRoleName=r\r\n", CrashTime);

        const auto pTool = test::MakeCollector<ToolCollection>();
        EXPECT_EQ(pTool->CollectVersion(), 1);
        EXPECT_EQ(pTool->m_CrashReporter.Product.ProductVersion, "1");
        EXPECT_EQ(pTool->CollectLog(), 1);
        EXPECT_THAT(pTool->m_CrashReporter.CustomFiles, ElementsAre(strLog));

        const auto pBrenn = test::MakeCollector<BrennCollection>();
        EXPECT_EQ(pBrenn->CollectVersion(), 1);
        EXPECT_EQ(pBrenn->m_CrashReporter.Product.ProductVersion, "2_SVN");
        EXPECT_EQ(pBrenn->GetProjectImgId(), 151);
        EXPECT_EQ(pBrenn->CollectLoginInfo(), 1);
        EXPECT_EQ(pBrenn->m_strAccount, "some body");
        EXPECT_EQ(pBrenn->m_strRoleName, "r");
        EXPECT_THAT(Log.Lines(), IsEmpty());
    }
};

TEST_F(ProgramFolder, MayHaveBlanksInItsName) {
    if (!IsCopy()) {
        const test::TempFolder Folder;
        RunCopyIn(Folder.Path("the game  of games\\bin 64"));
        return;
    }
    ExpectEverythingFound();
}

TEST_F(ProgramFolder, MayHaveLettersOfTheCodePagesUpperHalf) {
    if (!IsCopy()) {
        const test::TempFolder Folder;
        RunCopyIn(Folder.Path() + "\\jeu \xC4\xD6\xDC\xC4\\bin");
        return;
    }
    ExpectEverythingFound();
}

// "zhcn_exp" marks a test edition, whose reports are always sent.
TEST_F(ProgramFolder, OfATestEditionForcesTheSending) {
    if (!IsCopy()) {
        const test::TempFolder Folder;
        RunCopyIn(Folder.Path("zhcn_exp\\bin64"));
        RunCopyIn(Folder.Path("game_zhcn_exp2"));
        return;
    }
    BrennCollection Brenn;
    EXPECT_TRUE(Brenn.IsForceSend());
    Brenn.m_CrashReporter.Product.ProductVersionEx = "zhcn";
    EXPECT_TRUE(Brenn.IsForceSend());
}

TEST_F(ProgramFolder, OfATestEditionIsToldByItsExactLetters) {
    if (!IsCopy()) {
        const test::TempFolder Folder;
        RunCopyIn(Folder.Path("ZHCN_EXP"));
        RunCopyIn(Folder.Path("zhcn-exp"));
        // The program's own name does not count.
        RunCopyIn(Folder.Path("bin"), "zhcn_exp.exe");
        return;
    }
    EXPECT_FALSE(BrennCollection().IsForceSend());
}

template <typename Class>
std::unique_ptr<Collection> Make(const char* pszExecutable) {
    return test::MakeCollector<Class>(pszExecutable);
}

// No file's path can be formed where the folder's name leaves no room for it.
TEST_F(ProgramFolder, SaysThatItsNameIsTooLong) {
    if (!IsCopy()) {
        char szTemp[MAX_PATH] = {};
        GetTempPathA(MAX_PATH, szTemp);
        std::string strFolder = std::string(szTemp) + "crashvane_" + std::to_string(GetCurrentProcessId());
        const std::string strTop = strFolder;
        ASSERT_LT(strFolder.size(), 200u);
        strFolder += "\\" + std::string(249 - strFolder.size() - 1, 'x');
        RunCopyIn(strFolder, "a.exe");
        std::filesystem::remove_all(strTop);
        return;
    }
    struct Row {
        std::unique_ptr<Collection> pCollector;
        int nResult;
        std::vector<std::string> Lines;
        const char* pszVersionEx;
    };
    const auto Both = [](const std::string& strClass) {
        return std::vector{ProcessError("!strVersionCfg.empty()", strClass + "::GetVersionExA"),
                           ProcessError("!strVersionCfg.empty()", strClass + "::CollectVersion")};
    };
    const auto One = [](const std::string& strClass) {
        return std::vector{ProcessError("!strVersionCfg.empty()", strClass + "::CollectVersion")};
    };
    constexpr const char* OfTheReport = "version ex of the report";
    std::vector<Row> Rows;
    Rows.push_back({Make<DefaultCollection>("a.exe"), 0, One("Collection"), OfTheReport});
    Rows.push_back({Make<BrennCollection>("a.exe"), 0, One("BrennCollection"), OfTheReport});
    Rows.push_back({Make<EditorCollection>("a.exe"), 0, Both("EditorCollection"), ""});
    Rows.push_back({Make<ToolCollection>("a.exe"), 0, Both("ToolCollection"), ""});
    Rows.push_back({Make<IvorelGameClientCollection>("a.exe"), 0, Both("IvorelGameClientCollection"), ""});
    Rows.push_back({Make<MendwellCollection>("a.exe"), 0, Both("MendwellCollection"), ""});
    Rows.push_back({Make<DovekCollection>("a.exe"), 0, Both("DovekCollection"), ""});
    Rows.push_back({Make<CymraCollection>("a.exe"), 0, One("CymraCollection"), "zhcn"});
    Rows.push_back({Make<EssarnCollection>("a.exe"), 0, One("EssarnCollection"), "zhcn"});
    Rows.push_back({Make<OrvelCollection>("a.exe"), 0, One("OrvelCollection"), "pricingzhcn"});
    Rows.push_back({Make<TalisCollection>("taliswz.exe"), 0, One("TalisCollection"), "wzzhcn"});
    Rows.push_back({Make<TalisCollection>("talisvgame.exe"), 0, One("TalisCollection"), "vi_vn"});
    Rows.push_back({Make<TalisCollection>("a.exe"), 1, {}, ""});
    Rows.push_back({Make<HeskCollection>("a.exe"), 0, One("HeskCollection"), "zhcn"});
    Rows.push_back({Make<XXCollection>("a.exe"), 1, {}, "zhcn"});
    Rows.push_back({Make<FyrnCollection>("fyrn.exe"),
                    1,
                    {ProcessError("!strVersionCfg.empty()", "FyrnCollection::GetVersionExA")},
                    ""});
    Rows.push_back({Make<FyrnCollection>("fyrnexp.exe"),
                    0,
                    {ProcessError("!strVersionExpCfg.empty()", "FyrnCollection::CollectVersion")},
                    "expzhcn"});
    for (const Row& Each : Rows) {
        const LogCapture Log;
        EXPECT_EQ(Each.pCollector->CollectVersion(), Each.nResult);
        EXPECT_EQ(test::WithoutLineNumbers(Log.Lines()), Each.Lines);
        EXPECT_EQ(Each.pCollector->m_CrashReporter.Product.ProductVersionEx, Each.pszVersionEx);
    }

    const LogCapture Log;
    BrennCollection Brenn;
    EXPECT_EQ(Brenn.GetProjectImgId(), 130);
    EXPECT_EQ(Brenn.CollectInfo(), 0);
    EXPECT_EQ(Brenn.CollectProductThreadType(), 0);
    EXPECT_EQ(Brenn.CollectConfigFile(), 1);
    EXPECT_THAT(test::WithoutLineNumbers(Log.Lines()),
                ElementsAre(ProcessError("!strVersionCfg.empty()", "BrennCollection::GetProjectImgId"),
                            ProcessError("!strConfigFile.empty()", "BrennCollection::CollectInfo"),
                            ProcessError("!strConfigFile.empty()", "BrennCollection::CollectProductThreadType")));
    EXPECT_THAT(Brenn.m_CrashReporter.CustomFiles, IsEmpty());
    EXPECT_THAT(Brenn.m_CrashReporter.CustomInfos, IsEmpty());
}

}  // namespace
}  // namespace crashvane
