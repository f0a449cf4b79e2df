// The rules that decide before anything is asked; the answers of a server are played by the end-to-end tests.
#include "ui/ZCrashRepair.h"

#include <gmock/gmock.h>

#include "collection/Collection.h"
#include "driver/Config.h"
#include "support/LogCapture.h"
#include "support/TempFolder.h"

namespace crashvane::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::MatchesRegex;

class GivenCollection : public Collection {
  public:
    GivenCollection(const std::string& strProject, const std::string& strProcess) : m_strProject(strProject) {
        m_strProcessName = strProcess;
        m_CrashReporter.Exception.DumpKey = "ab12";
        m_CrashReporter.Exception.ExceptionModuleName = "engine.dll";
    }
    int GetProjectImgId() override { return 151; }
    const std::string& GetProjectName() override { return m_strProject; }

  private:
    std::string m_strProject;
};

class ZCrashRepairTest : public testing::Test {
  protected:
    // An installation with the tool and the game's executable, which the run would restart.
    ZCrashRepairTest() {
        m_Settings.m_strRestartApp = m_Game.Write("bin64/BRENNClientX64.exe", "MZ");
        for (char& cOne : m_Settings.m_strRestartApp) {
            cOne = cOne == '/' ? '\\' : cOne;
        }
        m_Settings.m_strDumpTypeUrl = "http://127.0.0.1:1/dump_api/get_dump_type";
    }

    bool Query(const std::string& strProject = "BRENN", const std::string& strProcess = "BRENNClientX64.exe") {
        GivenCollection Collected(strProject, strProcess);
        m_Repair.SetSource(&Collected, &m_Settings);
        return m_Repair.QuerySolution();
    }

    [[nodiscard]] auto OneLine(const std::string& strFunction) const {
        return ElementsAre(MatchesRegex("ZTLOG_PROCESS_ERROR\\(bRetCode\\) at line \\d+ in " + strFunction));
    }

    TempFolder m_Game;
    Config m_Settings;
    ZCrashRepair m_Repair;
    LogCapture m_Captured;
};

TEST_F(ZCrashRepairTest, AnotherProductIsNotAskedFor) {
    EXPECT_FALSE(Query("GALDOR"));
    EXPECT_THAT(m_Captured.Lines(), OneLine("ZCrashRepair::QuerySolution"));
}

TEST_F(ZCrashRepairTest, AnotherProcessIsNotAskedFor) {
    EXPECT_FALSE(Query("BRENN", "BRENNClient.exe"));
    EXPECT_THAT(m_Captured.Lines(), OneLine("ZCrashRepair::QuerySolution"));
}

TEST_F(ZCrashRepairTest, WithoutTheToolNothingIsAskedOrSaid) {
    EXPECT_FALSE(Query());
    EXPECT_THAT(m_Captured.Lines(), IsEmpty());
}

TEST_F(ZCrashRepairTest, AFolderOfTheToolsNameIsNoTool) {
    m_Game.MakeFolder("Mendwell.exe");
    EXPECT_FALSE(Query());
    EXPECT_THAT(m_Captured.Lines(), IsEmpty());
}

TEST_F(ZCrashRepairTest, ARestartProgramWithoutFoldersHasNoTool) {
    m_Settings.m_strRestartApp = "BRENNClientX64.exe";
    EXPECT_FALSE(Query());
    EXPECT_THAT(m_Captured.Lines(), IsEmpty());
}

TEST_F(ZCrashRepairTest, ProductAndProcessCountInAnyCase) {
    m_Game.Write("Mendwell.exe", "MZ");
    EXPECT_FALSE(Query("brenn", "brennclientx64.EXE"));
    const std::string strTool = m_Game.Path("Mendwell.exe");
    EXPECT_THAT(m_Captured.Lines(), testing::Contains("[QuerySolution] " + strTool + " is exist!"));
}

TEST_F(ZCrashRepairTest, ARequestThatFailsMeansNoSolution) {
    m_Game.Write("Mendwell.exe", "MZ");
    EXPECT_FALSE(Query());
    EXPECT_FALSE(m_Repair.IsFound());
    const std::vector<std::string> Lines = m_Captured.Lines();
    ASSERT_GE(Lines.size(), 3U);
    EXPECT_THAT(Lines,
                testing::Contains(MatchesRegex("ZTLOG_PROCESS_ERROR\\(nRetCode\\) at line \\d+ in SendDumpSolution")));
    EXPECT_EQ(Lines.back(), "[QuerySolution] CrashType=0, DumpKey=ab12  Module=engine.dll,");
}

TEST_F(ZCrashRepairTest, WithoutASolutionNothingIsStarted) {
    EXPECT_FALSE(m_Repair.StartRepair());
    EXPECT_FALSE(m_Repair.IsFound());
}

}  // namespace
}  // namespace crashvane::test
