#include <gmock/gmock.h>

#include "collection/Installation.h"
#include "collection/Products.h"

namespace crashvane {
namespace {

using test::ProcessError;
using testing::ElementsAre;
using testing::IsEmpty;

struct Row {
    const char* pszExecutable;
    const char* pszEditionKeys;  // of "version.cfg"
    const char* pszVersion;
    const char* pszEdition;
};

class FyrnTable : public test::CollectorTest, public testing::WithParamInterface<Row> {};

TEST_P(FyrnTable, TellsVersionAndEdition) {
    m_Installation.Write("version.cfg", std::string("[Version]\r\nversion=1.1\r\n") + GetParam().pszEditionKeys);
    m_Installation.Write("version_exp.cfg", "[Version]\r\nversion=2.2\r\nversionName=zhtw\r\n");
    m_Installation.Current().MakeFolder("Pak");
    for (const std::string& strExecutable : test::Spellings(GetParam().pszExecutable)) {
        const auto pCollector = test::MakeCollector<FyrnCollection>(strExecutable);
        EXPECT_EQ(pCollector->CollectVersion(), 1);
        EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersion, GetParam().pszVersion) << strExecutable;
        EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersionEx, GetParam().pszEdition) << strExecutable;
    }
    EXPECT_THAT(Checks(), IsEmpty());
}

constexpr const char* OfTheReport = "version of the report";

INSTANTIATE_TEST_SUITE_P(, FyrnTable,
                         testing::Values(Row{"fyrn.exe", "versionName=zhcn\r\n", "1.1", "zhcn"},
                                         Row{"fyrn.exe", "versionName=zhtw\r\n", "1.1", "zhtw"},
                                         Row{"fyrn.exe", "versionName=NW\r\n", "1.1", "NW"},
                                         Row{"fyrn.exe", "VersionLineName=NW\r\n", "1.1", "NW"},
                                         Row{"fyrn.exe", "VersionLineName=NW\r\nversionName=zhcn\r\n", "1.1", "NW"},
                                         Row{"fyrn.exe", "VersionLineName=nw\r\nversionName=zhtw\r\n", "1.1", "zhtw"},
                                         Row{"fyrn.exe", "VersionLineName=NWx\r\nversionName=zhcn\r\n", "1.1", "zhcn"},
                                         Row{"fyrn.exe", "versionName=expzhcn\r\n", "2.2", "expzhcn"},
                                         Row{"fyrn.exe", "versionName=ZHCN\r\n", OfTheReport, "ZHCN"},
                                         Row{"fyrn.exe", "versionName=vivn\r\n", OfTheReport, "vivn"},
                                         Row{"fyrn.exe", "", OfTheReport, ""},
                                         Row{"fyrnexp.exe", "versionName=zhcn\r\n", "2.2", "expzhcn"},
                                         Row{"fyrnexp.exe", "VersionLineName=NW\r\n", "2.2", "expzhcn"},
                                         Row{"fyrnclient.exe", "versionName=zhcn\r\n", OfTheReport, "other"},
                                         Row{"", "versionName=zhcn\r\n", OfTheReport, "other"}));

class FyrnCollectionTest : public test::CollectorTest {};

TEST_F(FyrnCollectionTest, NeedsNoFileForAnUnknownExecutable) {
    const auto pCollector = test::MakeCollector<FyrnCollection>("some.exe");
    EXPECT_EQ(pCollector->CollectVersion(), 1);
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(FyrnCollectionTest, MissesTheTrialEditionsFileOfAnEditionByName) {
    m_Installation.Write("version.cfg", "[Version]\r\nversion=1.1\r\nversionName=expzhcn\r\n");
    const auto pCollector = test::MakeCollector<FyrnCollection>("fyrn.exe");
    EXPECT_EQ(pCollector->CollectVersion(), 0);
    EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersion, OfTheReport);
    EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersionEx, "expzhcn");
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("nRetCode", "FyrnCollection::CollectVersion")));
}

}  // namespace
}  // namespace crashvane
