// The gathering of logs: one a subfolder, the nearest to the crash.
#include <gmock/gmock.h>

#include "collection/HeapCount.h"
#include "collection/Installation.h"
#include "collection/Products.h"

namespace crashvane {
namespace {

using test::CrashTime;
using test::ProcessError;
using testing::ElementsAre;
using testing::IsEmpty;

class CollectLogTest : public test::CollectorTest {
  protected:
    int Collect() { return m_pCollector->CollectLog(); }
    std::string LogAt(const std::string& strName, long long nAway) {
        return m_Installation.WriteAt("logs\\" + strName, "a line\n", CrashTime + nAway);
    }
    const std::vector<std::string>& Files() const { return m_pCollector->m_CrashReporter.CustomFiles; }

    std::unique_ptr<DefaultCollection> m_pCollector = test::MakeCollector<DefaultCollection>();
};

TEST_F(CollectLogTest, SaysThatTheFolderIsMissing) {
    EXPECT_EQ(Collect(), 0);
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("nRetCode", "Collection::CollectLog")));
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(CollectLogTest, TakesAFileOfTheFoldersNameForMissing) {
    m_Installation.Write("logs", "");
    EXPECT_EQ(Collect(), 0);
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("nRetCode", "Collection::CollectLog")));
}

TEST_F(CollectLogTest, IsContentWithAnEmptyFolder) {
    m_Installation.MakeFolder("logs");
    EXPECT_EQ(Collect(), 1);
    EXPECT_THAT(Files(), IsEmpty());
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(CollectLogTest, AddsTheNearestFileOfEachSubfolder) {
    LogAt("a\\before.log", -10);
    const std::string strAfter = LogAt("a\\after.log", 5);
    LogAt("b\\late.log", 4000);
    EXPECT_EQ(Collect(), 1);
    EXPECT_THAT(Files(), ElementsAre(strAfter));
}

TEST_F(CollectLogTest, AddsOneFileASubfolderInTheOrderOfTheFileSystem) {
    const std::string strB = LogAt("b\\x.log", 0);
    const std::string strA = LogAt("a\\x.log", 3000);
    const std::string strC = LogAt("c\\x.log", -3000);
    m_pCollector->m_CrashReporter.CustomFiles = {"of the report"};
    EXPECT_EQ(Collect(), 1);
    EXPECT_THAT(Files(), testing::UnorderedElementsAre("of the report", strA, strB, strC));
    EXPECT_EQ(Files().front(), "of the report");
}

TEST_F(CollectLogTest, PassesOverFilesOfTheFolderItself) {
    LogAt("x.log", 0);
    EXPECT_EQ(Collect(), 1);
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(CollectLogTest, LooksOneLevelBelowASubfolderAndNoDeeper) {
    LogAt("a\\b\\c\\deep.log", 0);
    const std::string strBelow = LogAt("a\\b\\below.log", 20);
    LogAt("a\\own.log", -30);
    EXPECT_EQ(Collect(), 1);
    EXPECT_THAT(Files(), ElementsAre(strBelow));
}

TEST_F(CollectLogTest, TakesFilesAnHourAwayAndNoneFartherOff) {
    const std::string strBefore = LogAt("a\\x.log", -3600);
    LogAt("b\\x.log", -3601);
    const std::string strAfter = LogAt("c\\x.log", 3600);
    LogAt("d\\x.log", 3601);
    EXPECT_EQ(Collect(), 1);
    EXPECT_THAT(Files(), testing::UnorderedElementsAre(strBefore, strAfter));
}

TEST_F(CollectLogTest, KeepsTheFirstFoundOnATie) {
    LogAt("a\\own.log", 10);
    const std::string strBelow = LogAt("a\\z\\below.log", -10);
    EXPECT_EQ(Collect(), 1);
    EXPECT_THAT(Files(), ElementsAre(strBelow));
}

TEST_F(CollectLogTest, WantsTheEndingLog) {
    LogAt("a\\x.txt", 0);
    LogAt("a\\log", 0);
    const std::string strUpper = LogAt("a\\X.LOG", 100);
    EXPECT_EQ(Collect(), 1);
    EXPECT_THAT(Files(), ElementsAre(strUpper));
}

TEST_F(CollectLogTest, TakesALogThatTheGameStillHoldsOpen) {
    const std::string strLog = LogAt("a\\x.log", 0);
    const test::Locked Lock(strLog);
    EXPECT_EQ(Collect(), 1);
    EXPECT_THAT(Files(), ElementsAre(strLog));
}

TEST_F(CollectLogTest, FindsNothingForAMomentFarFromAllClocks) {
    LogAt("a\\x.log", 0);
    for (const long long nMoment : {(std::numeric_limits<long long>::min)(), (std::numeric_limits<long long>::max)()}) {
        m_pCollector->m_CrashReporter.Exception.ExceptionTime = nMoment;
        EXPECT_EQ(Collect(), 1);
    }
    EXPECT_THAT(Files(), IsEmpty());
}

TEST_F(CollectLogTest, NeedsLittleMemoryForManySubfolders) {
    constexpr std::size_t Count = 300;
    for (std::size_t uFolder = 0; uFolder < Count; ++uFolder) {
        m_Installation.MakeFolder("logs\\" + std::to_string(uFolder));
    }
    const test::HeapPeak Peak;
    EXPECT_EQ(Collect(), 1);
    EXPECT_LT(Peak.Bytes(), Count * 300);
}

TEST_F(CollectLogTest, LooksWhereItIsTold) {
    const std::string strLog = m_Installation.WriteAt("elsewhere\\a\\x.log", "", CrashTime);
    EXPECT_EQ(m_pCollector->Collection::CollectLog(test::Installation::PathOf("elsewhere")), 1);
    EXPECT_THAT(Files(), ElementsAre(strLog));
}

TEST_F(CollectLogTest, LooksForTheRepairToolsLogsInAFolderOfTheirOwn) {
    LogAt("other\\x.log", 0);
    LogAt("Mendwell\\x.log", 0);
    const std::string strLog = LogAt("Mendwell\\2019_08_30\\y.log", 60);
    const auto pCollector = test::MakeCollector<MendwellCollection>();
    EXPECT_EQ(pCollector->CollectLog(), 1);
    EXPECT_THAT(pCollector->m_CrashReporter.CustomFiles, ElementsAre(strLog));
}

TEST_F(CollectLogTest, MissesTheRepairToolsFolderBesideOtherLogs) {
    LogAt("other\\x.log", 0);
    EXPECT_EQ(test::MakeCollector<MendwellCollection>()->CollectLog(), 0);
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("nRetCode", "Collection::CollectLog")));
}

}  // namespace
}  // namespace crashvane
