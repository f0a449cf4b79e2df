// The three products whose version has two parts.
#include <gmock/gmock.h>

#include "collection/Installation.h"
#include "collection/Products.h"

namespace crashvane {
namespace {

using testing::IsEmpty;

constexpr const char* VersionCfg =
    "[game.exe]\r\nMajorVersion=2\r\nCurVersion=17\r\nVersion=18\r\n"
    "[gamefree.exe]\r\nMajorVersion=3\r\nVersion=31\r\n"
    "[gamefree_y.exe]\r\nMajorVersion=4\r\nVersion=41\r\n"
    "[gamecl.exe]\r\nMajorVersion=5\r\nVersion=51\r\n"
    "[gamexp.exe]\r\nMajorVersion=6\r\nCurVersion=61\r\n";

struct Row {
    const char* pszExecutable;
    const char* pszVersion;
    const char* pszVersionEx;
    int nImageId;
};

template <typename Class>
class DottedProduct : public test::CollectorTest, public testing::WithParamInterface<Row> {
  protected:
    void ExpectRow() {
        m_Installation.Write("version.cfg", VersionCfg);
        for (const std::string& strExecutable : test::Spellings(GetParam().pszExecutable)) {
            const auto pCollector = test::MakeCollector<Class>(strExecutable);
            EXPECT_EQ(pCollector->CollectVersion(), 1);
            EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersion, GetParam().pszVersion) << strExecutable;
            EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersionEx, GetParam().pszVersionEx) << strExecutable;
            EXPECT_EQ(pCollector->GetProjectImgId(), GetParam().nImageId) << strExecutable;
        }
        EXPECT_THAT(Checks(), IsEmpty());
    }
};

class CymraTable : public DottedProduct<CymraCollection> {};
TEST_P(CymraTable, TellsVersionAndEdition) {
    ExpectRow();
}
INSTANTIATE_TEST_SUITE_P(, CymraTable,
                         testing::Values(Row{"gamexp.exe", "2.17_SVN", "zhcn-exp", 136},
                                         Row{"game.exe", "2.17_SVN", "zhcn", 136}, Row{"", "2.17_SVN", "zhcn", 136}));

class EssarnTable : public DottedProduct<EssarnCollection> {};
TEST_P(EssarnTable, TellsVersionAndEdition) {
    ExpectRow();
}
INSTANTIATE_TEST_SUITE_P(, EssarnTable,
                         testing::Values(Row{"game.exe", "2.18", "zhcn", 135}, Row{"gamexp.exe", "2.18", "zhcn", 135}));

class OrvelTable : public DottedProduct<OrvelCollection> {};
TEST_P(OrvelTable, TellsVersionEditionAndBanner) {
    ExpectRow();
}
INSTANTIATE_TEST_SUITE_P(
    , OrvelTable,
    testing::Values(Row{"gamefree.exe", "3.31", "freezhcn", 146}, Row{"gamefree_y.exe", "4.41", "vnib", 157},
                    Row{"gamecl.exe", "5.51", "orvelcl", 146}, Row{"game.exe", "2.18", "pricingzhcn", 146},
                    Row{"gamefree_x.exe", "2.18", "pricingzhcn", 146}, Row{"", "2.18", "pricingzhcn", 146}));

class DottedProductsTest : public test::CollectorTest {};

TEST_F(DottedProductsTest, OneOfThemTellsPackagedInstallations) {
    m_Installation.Write("version.cfg", VersionCfg);
    m_Installation.Current().MakeFolder("Pak");
    const auto pCymra = test::MakeCollector<CymraCollection>("game.exe");
    pCymra->CollectVersion();
    EXPECT_EQ(pCymra->m_CrashReporter.Product.ProductVersion, "2.17_PAK");
    const auto pEssarn = test::MakeCollector<EssarnCollection>("game.exe");
    pEssarn->CollectVersion();
    EXPECT_EQ(pEssarn->m_CrashReporter.Product.ProductVersion, "2.18");
    const auto pOrvel = test::MakeCollector<OrvelCollection>("game.exe");
    pOrvel->CollectVersion();
    EXPECT_EQ(pOrvel->m_CrashReporter.Product.ProductVersion, "2.18");
}

}  // namespace
}  // namespace crashvane
