#include <gmock/gmock.h>

#include "collection/Installation.h"
#include "collection/Products.h"

namespace crashvane {
namespace {

using test::CrashTime;
using test::ProcessError;
using testing::ElementsAre;
using testing::IsEmpty;

class GaldorCollectionTest : public test::CollectorTest {
  protected:
    const std::vector<std::string>& Files() const { return m_pCollector->m_CrashReporter.CustomFiles; }

    std::unique_ptr<GaldorCollection> m_pCollector = test::MakeCollector<GaldorCollection>();
};

TEST_F(GaldorCollectionTest, AddsItsSettings) {
    const std::string strConfig = m_Installation.Write("config.ini", "");
    EXPECT_EQ(m_pCollector->CollectConfigFile(), 1);
    EXPECT_THAT(Files(), ElementsAre(strConfig));
}

TEST_F(GaldorCollectionTest, IsContentWithoutSettings) {
    EXPECT_EQ(m_pCollector->CollectConfigFile(), 1);
    m_Installation.MakeFolder("config.ini");
    EXPECT_EQ(m_pCollector->CollectConfigFile(), 1);
    EXPECT_THAT(Files(), IsEmpty());
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(GaldorCollectionTest, GathersLogsFromBothFolders) {
    const std::string strLog = m_Installation.WriteAt("log\\a\\x.log", "", CrashTime);
    const std::string strLogs = m_Installation.WriteAt("logs\\a\\x.log", "", CrashTime);
    EXPECT_EQ(m_pCollector->CollectLog(), 1);
    EXPECT_THAT(Files(), ElementsAre(strLogs, strLog));
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(GaldorCollectionTest, SucceedsWithTheSecondFolderAlone) {
    m_Installation.MakeFolder("log");
    EXPECT_EQ(m_pCollector->CollectLog(), 1);
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("nRetCode", "Collection::CollectLog")));
}

TEST_F(GaldorCollectionTest, FailsWithTheFirstFolderAloneThoughItsLogsAreKept) {
    const std::string strLogs = m_Installation.WriteAt("logs\\a\\x.log", "", CrashTime);
    EXPECT_EQ(m_pCollector->CollectLog(), 0);
    EXPECT_THAT(Files(), ElementsAre(strLogs));
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("nRetCode", "Collection::CollectLog")));
}

TEST_F(GaldorCollectionTest, IsAlwaysSent) {
    EXPECT_TRUE(m_pCollector->IsForceSend());
}

TEST_F(GaldorCollectionTest, TellsItsVersionByTheDefaultWay) {
    m_Installation.Write("version.cfg", "[Version]\r\nversion=1\r\nversionex=2\r\nVersionLineName=3\r\n");
    EXPECT_EQ(m_pCollector->CollectVersion(), 1);
    EXPECT_EQ(m_pCollector->m_CrashReporter.Product.ProductVersion, "1_SVN");
    EXPECT_EQ(m_pCollector->m_CrashReporter.Product.ProductVersionEx, "23");
}

}  // namespace
}  // namespace crashvane
