#include "collection/BrennCollection.h"

#include <gmock/gmock.h>

#include "collection/Installation.h"

namespace crashvane {
namespace {

using test::CrashTime;
using test::ProcessError;
using testing::ElementsAre;
using testing::IsEmpty;

class BrennCollectionTest : public test::CollectorTest {
  protected:
    Product& Result() { return m_pCollector->m_CrashReporter.Product; }
    const std::vector<std::string>& Files() const { return m_pCollector->m_CrashReporter.CustomFiles; }
    const std::vector<std::string>& Infos() const { return m_pCollector->m_CrashReporter.CustomInfos; }

    std::unique_ptr<BrennCollection> m_pCollector = test::MakeCollector<BrennCollection>("BRENNClient.exe");
};

TEST_F(BrennCollectionTest, ReadsTheVersionOneFolderUp) {
    m_Installation.Write("version.cfg", "[Version]\r\nTessel.version=not this\r\n");
    m_Installation.Write(
        "..\\version.cfg",
        "[Version]\r\nTessel.version=1.0.0.5\r\nTessel.versionex=hd_\r\nTessel.VersionLineName=zhcn\r\n"
        "Tessel.VersionCodeName=pakv4\r\nversion=nor this\r\n");
    EXPECT_EQ(m_pCollector->CollectVersion(), 1);
    EXPECT_EQ(Result().ProductVersion, "1.0.0.5_SVN");
    EXPECT_EQ(Result().ProductVersionEx, "pakv4_hd_zhcn");
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(BrennCollectionTest, LooksForPakOneFolderAboveTheCurrentOne) {
    m_Installation.Write("..\\version.cfg", "[Version]\r\nTessel.version=1\r\n");
    m_Installation.Current().MakeFolder("Pak");
    m_Installation.Current().MakeFolder("bin");
    EXPECT_EQ(m_pCollector->CollectVersion(), 1);
    EXPECT_EQ(Result().ProductVersion, "1_SVN");

    const test::CurrentFolderIs Current(m_Installation.Current().Path("bin"));
    EXPECT_EQ(m_pCollector->CollectVersion(), 1);
    EXPECT_EQ(Result().ProductVersion, "1_PAK");
}

class BrennBanner : public test::CollectorTest, public testing::WithParamInterface<std::pair<const char*, int>> {};

TEST_P(BrennBanner, IsChosenByTheLineName) {
    m_Installation.Write("..\\version.cfg",
                         std::string("[Version]\r\nTessel.VersionLineName=") + GetParam().first + "\r\n");
    EXPECT_EQ(test::MakeCollector<BrennCollection>()->GetProjectImgId(), GetParam().second);
    EXPECT_THAT(Checks(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, BrennBanner,
                         testing::Values(std::pair("zhkr", 151), std::pair("vivn", 156), std::pair("zhtw", 158),
                                         std::pair("zhcn", 130), std::pair("ZHTW", 130), std::pair("", 130)));

TEST_F(BrennCollectionTest, ShowsTheCommonBannerWithoutAVersionFile) {
    EXPECT_EQ(m_pCollector->GetProjectImgId(), 130);
    m_Installation.MakeFolder("..\\version.cfg");
    EXPECT_EQ(m_pCollector->GetProjectImgId(), 130);
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("nRetCode", "BrennCollection::GetProjectImgId"),
                                      ProcessError("nRetCode", "BrennCollection::GetProjectImgId")));
}

TEST_F(BrennCollectionTest, IsAlwaysSentInOneTestEdition) {
    for (const auto& [pszVersionEx, bExpected] : {std::pair("bvtzhcn", true), std::pair("bvtzhcn ", false),
                                                  std::pair("BVTZHCN", false), std::pair("", false)}) {
        Result().ProductVersionEx = pszVersionEx;
        EXPECT_EQ(m_pCollector->IsForceSend(), bExpected) << pszVersionEx;
    }
}

TEST_F(BrennCollectionTest, AddsItsSettings) {
    m_Installation.Write("config.ini", "");
    const std::string strConfig = m_Installation.Write("..\\config.ini", "");
    EXPECT_EQ(m_pCollector->CollectConfigFile(), 1);
    EXPECT_THAT(Files(), ElementsAre(strConfig));
}

TEST_F(BrennCollectionTest, IsContentWithoutSettings) {
    EXPECT_EQ(m_pCollector->CollectConfigFile(), 1);
    m_Installation.MakeFolder("..\\config.ini");
    EXPECT_EQ(m_pCollector->CollectConfigFile(), 1);
    EXPECT_THAT(Files(), IsEmpty());
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(BrennCollectionTest, ReportsTheEnginesOptionsInTheirOrder) {
    m_Installation.Write("..\\engineoptionsnap.ini",
                         "[ZT3DENGINE]\r\nfCameraDistance=1200.5\r\nnFoliageDensity=80\r\nnShadowType=3\r\n"
                         "bEnableRC_ForwardRender=1\r\n");
    EXPECT_EQ(m_pCollector->CollectInfo(), 1);
    EXPECT_THAT(Infos(), ElementsAre("bEnableRC_ForwardRender=1", "nShadowType=3", "nFoliageDensity=80",
                                     "fCameraDistance=1200.5"));
}

TEST_F(BrennCollectionTest, ReportsBarePrefixesOfMissingOptions) {
    m_Installation.Write("..\\engineoptionsnap.ini", "[Other]\r\nnShadowType=3\r\n");
    EXPECT_EQ(m_pCollector->CollectInfo(), 1);
    EXPECT_THAT(Infos(),
                ElementsAre("bEnableRC_ForwardRender=0", "nShadowType=", "nFoliageDensity=", "fCameraDistance="));
}

TEST_F(BrennCollectionTest, ReportsMissingOptionsInTheReportItself) {
    EXPECT_EQ(m_pCollector->CollectInfo(), 1);
    m_Installation.MakeFolder("..\\engineoptionsnap.ini");
    EXPECT_EQ(m_pCollector->CollectInfo(), 1);
    EXPECT_THAT(Infos(), ElementsAre("engineoptionsnap.ini is not found", "engineoptionsnap.ini is not found"));
    EXPECT_THAT(Checks(), IsEmpty());
}

class BrennForwardRender : public test::CollectorTest,
                           public testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(BrennForwardRender, IsOnForTheDigitOneAlone) {
    m_Installation.Write("..\\engineoptionsnap.ini",
                         std::string("[ZT3DENGINE]\r\nbEnableRC_ForwardRender=") + GetParam().first + "\r\n");
    const auto pCollector = test::MakeCollector<BrennCollection>();
    EXPECT_EQ(pCollector->CollectInfo(), 1);
    EXPECT_EQ(pCollector->m_CrashReporter.CustomInfos.at(0), GetParam().second);
}

INSTANTIATE_TEST_SUITE_P(
    , BrennForwardRender,
    testing::Values(std::pair("1", "bEnableRC_ForwardRender=1"), std::pair("0", "bEnableRC_ForwardRender=0"),
                    std::pair("", "bEnableRC_ForwardRender=0"), std::pair("true", "bEnableRC_ForwardRender=0"),
                    std::pair("11", "bEnableRC_ForwardRender=0"), std::pair("01", "bEnableRC_ForwardRender=0"),
                    std::pair("2", "bEnableRC_ForwardRender=0")));

TEST_F(BrennCollectionTest, GathersLogsOneFolderUp) {
    m_Installation.WriteAt("logs\\client\\x.log", "", CrashTime);
    const std::string strLog = m_Installation.WriteAt("..\\logs\\client\\x.log", "", CrashTime + 60);
    EXPECT_EQ(m_pCollector->CollectLog(), 1);
    EXPECT_THAT(Files(), ElementsAre(strLog));
}

TEST_F(BrennCollectionTest, MissesItsLogFolder) {
    m_Installation.MakeFolder("logs");
    EXPECT_EQ(m_pCollector->CollectLog(), 0);
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("nRetCode", "Collection::CollectLog")));
}

class BrennThreadType : public test::CollectorTest,
                        public testing::WithParamInterface<std::pair<const char*, const char*>> {};

TEST_P(BrennThreadType, IsMultiThreadForTheDigitOneAlone) {
    m_Installation.Write("config.ini", "[Main]\r\nMultiThread=1\r\n");
    m_Installation.Write("..\\config.ini", GetParam().first);
    const auto pCollector = test::MakeCollector<BrennCollection>();
    EXPECT_EQ(pCollector->CollectProductThreadType(), 1);
    EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductThreadType, GetParam().second);
    EXPECT_THAT(Checks(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, BrennThreadType,
                         testing::Values(std::pair("[Main]\r\nMultiThread=1\r\n", "MultiThread"),
                                         std::pair("[Main]\r\nMultiThread=0\r\n", "SingleThread"),
                                         std::pair("[Main]\r\nMultiThread=\r\n", "SingleThread"),
                                         std::pair("[Main]\r\nMultiThread=true\r\n", "SingleThread"),
                                         std::pair("[Main]\r\nMultiThread=10\r\n", "SingleThread"),
                                         std::pair("[Main]\r\n", "SingleThread"),
                                         std::pair("[Other]\r\nMultiThread=1\r\n", "SingleThread"),
                                         std::pair("", "SingleThread")));

TEST_F(BrennCollectionTest, IsSingleThreadedWithoutSettings) {
    EXPECT_EQ(m_pCollector->CollectProductThreadType(), 1);
    EXPECT_EQ(Result().ProductThreadType, "SingleThread");
    Result().ProductThreadType.clear();
    m_Installation.MakeFolder("..\\config.ini");
    EXPECT_EQ(m_pCollector->CollectProductThreadType(), 1);
    EXPECT_EQ(Result().ProductThreadType, "SingleThread");
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(BrennCollectionTest, IsA64BitProductByDefault) {
    EXPECT_EQ(m_pCollector->CollectProductBitType(), 1);
    EXPECT_EQ(Result().ProductBitType, "x64");
}

}  // namespace
}  // namespace crashvane
