#include "collection/Collection.h"

#include <gmock/gmock.h>

#include "collection/Installation.h"
#include "collection/Products.h"
#include "collection/ReportText.h"

namespace crashvane {
namespace {

using test::CheckError;
using test::ProcessError;
using test::ReportText;
using test::ReportValues;
using testing::ElementsAre;
using testing::IsEmpty;

// Says which steps were taken, and answers them all as it is told.
class ProbeCollection : public Collection {
  public:
    int GetProjectImgId() override { return 1; }
    const std::string& GetProjectName() override { return Step("GetProjectName"), m_strKey; }
    int CollectConfigFile() override { return Step("CollectConfigFile"); }
    int CollectInfo() override { return Step("CollectInfo"); }
    int CollectLog() override { return Step("CollectLog"); }
    int CollectLoginInfo() override { return Step("CollectLoginInfo"); }
    int CollectVersion() override { return Step("CollectVersion"); }
    int CollectProductThreadType() override { return Step("CollectProductThreadType"); }
    int CollectProductBitType() override { return Step("CollectProductBitType"); }

    std::vector<std::string> m_Steps;
    int m_nAnswer = 1;
    std::string m_strKey = "PROBE";

  private:
    int Step(const char* pszName) {
        m_Steps.emplace_back(pszName);
        return m_nAnswer;
    }
};

// Nothing but what an abstract base demands.
class BareCollection : public Collection {
  public:
    int GetProjectImgId() override { return 2; }
    const std::string& GetProjectName() override { return m_strKey; }

  private:
    std::string m_strKey = "BARE";
};

class CollectionTest : public test::CollectorTest {
  protected:
    std::string WriteReport(const ReportValues& Values = {}) {
        return m_Installation.Current().Write("CrashReport.xml", ReportText(Values));
    }
    std::string ReadReport() { return test::TempFolder::Read(m_Installation.Current().Path("CrashReport.xml")); }
};

TEST_F(CollectionTest, BeginsEmpty) {
    BareCollection Bare;
    EXPECT_EQ(Bare.m_strAccount + Bare.m_strRoleName + Bare.m_strRegionName + Bare.m_strServerName +
                  Bare.m_strCrashReportFile + Bare.m_strProcessName + Bare.m_CrashReporter.Project,
              "");
    EXPECT_EQ(Bare.m_CrashReporter.Exception.ExceptionTime, 0);
}

TEST_F(CollectionTest, RefusesAnEmptyPath) {
    ProbeCollection Probe;
    EXPECT_EQ(Probe.Init("", 0), 0);
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("!strCrashReportFile.empty()", "Collection::Init")));
    EXPECT_THAT(Probe.m_Steps, IsEmpty());
}

TEST_F(CollectionTest, CollectsAndWritesNothingWhenTheReportCannotBeLoaded) {
    const std::string strPath = m_Installation.Current().Write("CrashReport.xml", "<CrashReport />");
    ProbeCollection Probe;
    EXPECT_EQ(Probe.Init(strPath, 0), 0);
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("pElement", "CrashReporter::Load"),
                                      ProcessError("nRetCode", "Collection::Init")));
    EXPECT_THAT(Probe.m_Steps, IsEmpty());
    EXPECT_EQ(ReadReport(), "<CrashReport />");
    EXPECT_EQ(Probe.m_strCrashReportFile, strPath);
}

TEST_F(CollectionTest, CollectsStepByStepInItsOrder) {
    ProbeCollection Probe;
    EXPECT_EQ(Probe.Init(WriteReport(), 0), 1);
    EXPECT_THAT(Probe.m_Steps,
                ElementsAre("CollectVersion", "CollectLog", "CollectConfigFile", "CollectInfo", "CollectLoginInfo",
                            "CollectProductThreadType", "CollectProductBitType", "GetProjectName"));
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(CollectionTest, LeavesTheVersionAloneWhenTheProjectCameFromTheCommandLine) {
    for (const int bProjectFromCmd : {1, -1}) {
        ProbeCollection Probe;
        EXPECT_EQ(Probe.Init(WriteReport(), bProjectFromCmd), 1);
        EXPECT_EQ(Probe.m_Steps.front(), "CollectLog");
        EXPECT_EQ(Probe.m_Steps.size(), 7u);
    }
}

TEST_F(CollectionTest, GoesOnAfterEveryStepThatFails) {
    ProbeCollection Probe;
    Probe.m_nAnswer = 0;
    EXPECT_EQ(Probe.Init(WriteReport(), 0), 1);
    EXPECT_EQ(Probe.m_Steps.size(), 8u);
    EXPECT_EQ(Checks(), std::vector<std::string>(7, CheckError("nRetCode", "Collection::Init")));
    EXPECT_THAT(ReadReport(), testing::HasSubstr("<CrashReporter Project=\"PROBE\">"));
}

TEST_F(CollectionTest, LogsAsOneLineEachWhatAClassDoesNotOverride) {
    m_Installation.MakeFolder("logs");
    m_Installation.Write("version.cfg", "[Version]\r\nversion=1\r\n");
    BareCollection Bare;
    EXPECT_EQ(Bare.Init(WriteReport(), 0), 1);
    EXPECT_THAT(Checks(),
                ElementsAre(CheckError("nRetCode", "Collection::Init"), CheckError("nRetCode", "Collection::Init")));
}

TEST_F(CollectionTest, WritesTheCompletedReportOverTheOldOne) {
    m_Installation.WriteAt("logs\\client\\x.log", "", test::CrashTime);
    ReportValues Before;
    Before.CustomFiles = {"C:\\Game\\screen.png"};
    Before.CustomInfos = {"of the client"};
    BareCollection Bare;
    EXPECT_EQ(Bare.Init(WriteReport(Before), 1), 1);

    ReportValues After = Before;
    After.strProject = "BARE";
    After.strBitType = "x64";
    After.CustomFiles.push_back(test::Installation::PathOf("logs\\client\\x.log"));
    EXPECT_EQ(ReadReport(), ReportText(After));
}

TEST_F(CollectionTest, KeepsThePathAndTheProcess) {
    BareCollection Bare;
    const std::string strPath = WriteReport();
    EXPECT_EQ(Bare.GetProcessName(), "");
    Bare.Init(strPath, 1);
    EXPECT_EQ(Bare.m_strCrashReportFile, strPath);
    EXPECT_EQ(Bare.m_strProcessName, "TheProcess.exe");
    EXPECT_EQ(&Bare.GetProcessName(), &Bare.m_strProcessName);
}

TEST_F(CollectionTest, SucceedsWhenTheReportCannotBeWrittenBack) {
    const std::string strPath = WriteReport();
    const test::Locked ReadOnly(strPath, FILE_SHARE_READ);
    ProbeCollection Probe;
    EXPECT_EQ(Probe.Init(strPath, 0), 1);
    EXPECT_EQ(Probe.m_CrashReporter.Project, "PROBE");
    EXPECT_EQ(ReadReport(), ReportText({}));
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("nRetCode", "CrashReporter::Save")));
}

TEST_F(CollectionTest, HasDefaultsForWhatNoProductNeeds) {
    BareCollection Bare;
    EXPECT_FALSE(Bare.IsForceSend());
    EXPECT_EQ(Bare.CollectConfigFile(), 1);
    EXPECT_EQ(Bare.CollectInfo(), 1);
    EXPECT_EQ(Bare.CollectLoginInfo(), 0);
    EXPECT_EQ(Bare.CollectProductThreadType(), 0);
    EXPECT_EQ(Bare.CollectProductBitType(), 1);
    EXPECT_EQ(Bare.m_CrashReporter.Product.ProductBitType, "x64");
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(CollectionTest, AppendsInfosInTheirOrder) {
    BareCollection Bare;
    Bare.m_CrashReporter.CustomInfos = {"of the client"};
    EXPECT_EQ(Bare.AddCustomInfo("%s%n"), 1);
    EXPECT_EQ(Bare.AddCustomInfo(""), 1);
    EXPECT_THAT(Bare.m_CrashReporter.CustomInfos, ElementsAre("of the client", "%s%n", ""));
}

class CollectionVersionTest : public test::CollectorTest {
  protected:
    void Collect(int nExpected) { EXPECT_EQ(m_pCollector->CollectVersion(), nExpected); }
    const Product& Result() const { return m_pCollector->m_CrashReporter.Product; }

    std::unique_ptr<BareCollection> m_pCollector = test::MakeCollector<BareCollection>();
};

TEST_F(CollectionVersionTest, ReadsVersionAndPutsTheLineNameBehindVersionEx) {
    m_Installation.Write("version.cfg", "[Version]\r\nVersionLineName=zhcn\r\nversion=1.2.3\r\nversionex=_hd_\r\n");
    Collect(1);
    EXPECT_EQ(Result().ProductVersion, "1.2.3_SVN");
    EXPECT_EQ(Result().ProductVersionEx, "_hd_zhcn");
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(CollectionVersionTest, TellsAPackagedInstallationByThePakFolderOfTheCurrentFolder) {
    m_Installation.Write("version.cfg", "[Version]\r\nversion=1\r\n");
    m_Installation.Current().MakeFolder("Pak");
    Collect(1);
    EXPECT_EQ(Result().ProductVersion, "1_PAK");
}

TEST_F(CollectionVersionTest, TakesNeitherAFileNorThePakFolderBesideTheProgramForIt) {
    m_Installation.Write("version.cfg", "[Version]\r\nversion=1\r\n");
    m_Installation.Current().Write("Pak", "");
    m_Installation.MakeFolder("Pak");
    Collect(1);
    EXPECT_EQ(Result().ProductVersion, "1_SVN");
}

TEST_F(CollectionVersionTest, SaysThatTheFileIsMissingAndLeavesTheReportAlone) {
    Collect(0);
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("nRetCode", "Collection::CollectVersion")));
    EXPECT_EQ(Result().ProductVersion, "version of the report");
    EXPECT_EQ(Result().ProductVersionEx, "version ex of the report");
}

TEST_F(CollectionVersionTest, WantsNamesOfTheTwoMainKeys) {
    m_Installation.Write("version.cfg", "[Version]\r\nversion=1\r\n");
    EXPECT_EQ(m_pCollector->Collection::CollectVersion("", "versionex", "line"), 0);
    EXPECT_EQ(m_pCollector->Collection::CollectVersion("version", "", "line"), 0);
    EXPECT_EQ(m_pCollector->Collection::CollectVersion("", "", ""), 0);
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("!strVersionKey.empty()", "Collection::CollectVersion"),
                                      ProcessError("!strVersionExKey.empty()", "Collection::CollectVersion"),
                                      ProcessError("!strVersionKey.empty()", "Collection::CollectVersion")));
    EXPECT_EQ(Result().ProductVersion, "version of the report");
}

TEST_F(CollectionVersionTest, ReadsTheKeysThatItIsTold) {
    m_Installation.Write("version.cfg", "[Version]\r\na=1\r\nb=2\r\nc=3\r\n");
    EXPECT_EQ(m_pCollector->Collection::CollectVersion("a", "b", "c"), 1);
    EXPECT_EQ(Result().ProductVersion, "1_SVN");
    EXPECT_EQ(Result().ProductVersionEx, "23");
}

}  // namespace
}  // namespace crashvane
