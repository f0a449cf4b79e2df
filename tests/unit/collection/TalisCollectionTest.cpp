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
    const char* pszVersion;
    const char* pszEdition;
};

class TalisTable : public test::CollectorTest, public testing::WithParamInterface<Row> {};

TEST_P(TalisTable, TellsVersionAndEdition) {
    m_Installation.Write("config.ini", "[Version]\r\nVersion=7.8\r\n");
    m_Installation.Write("versionlist.cfg",
                         "[1]\r\nMajorVersion=1\r\nVersion=2\r\nClientVersion=3\r\nGeneralVersion=4\r\n"
                         "[2]\r\nMajorVersion=21\r\nVersion=22\r\nClientVersion=23\r\nGeneralVersion=24\r\n");
    m_Installation.Current().MakeFolder("Pak");
    for (const std::string& strExecutable : test::Spellings(GetParam().pszExecutable)) {
        const auto pCollector = test::MakeCollector<TalisCollection>(strExecutable);
        EXPECT_EQ(pCollector->CollectVersion(), 1);
        EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersion, GetParam().pszVersion) << strExecutable;
        EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersionEx, GetParam().pszEdition) << strExecutable;
    }
    EXPECT_THAT(Checks(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(, TalisTable,
                         testing::Values(Row{"talisonline.exe", "1.2.3", "zhcn"}, Row{"taliswz.exe", "1.2.4", "wzzhcn"},
                                         Row{"talisvgame.exe", "7.8", "vi_vn"},
                                         Row{"talisonlinefree.exe", "21.22.23", "freezhcn"},
                                         Row{"talisvnewgame.exe", "1.2.3", "xzzhcn"},
                                         Row{"talis.exe", "version of the report", ""},
                                         Row{"", "version of the report", ""}));

class TalisCollectionTest : public test::CollectorTest {};

TEST_F(TalisCollectionTest, NeedsNoFileForAnUnknownExecutable) {
    const auto pCollector = test::MakeCollector<TalisCollection>("talis.exe");
    EXPECT_EQ(pCollector->CollectVersion(), 1);
    EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersion, "version of the report");
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(TalisCollectionTest, DoesNotTakeOneFileForTheOther) {
    m_Installation.Write("config.ini", "[Version]\r\nVersion=7.8\r\n");
    const auto pByList = test::MakeCollector<TalisCollection>("talisonline.exe");
    EXPECT_EQ(pByList->CollectVersion(), 0);
    EXPECT_EQ(pByList->m_CrashReporter.Product.ProductVersion, "version of the report");
    EXPECT_EQ(pByList->m_CrashReporter.Product.ProductVersionEx, "zhcn");
    EXPECT_THAT(Checks(), ElementsAre(ProcessError("nRetCode", "TalisCollection::CollectVersion")));
}

}  // namespace
}  // namespace crashvane
