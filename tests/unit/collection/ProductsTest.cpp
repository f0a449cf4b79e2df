#include "collection/Products.h"

#include <gmock/gmock.h>

#include "collection/Installation.h"

namespace crashvane {
namespace {

using testing::IsEmpty;

class ProductsTest : public test::CollectorTest {};

TEST_F(ProductsTest, XXTellsAFixedVersionWithoutAnyFile) {
    m_Installation.Write("version.cfg", "[Version]\r\nversion=5\r\nversionName=x\r\n");
    m_Installation.Current().MakeFolder("Pak");
    const auto pCollector = test::MakeCollector<XXCollection>();
    EXPECT_EQ(pCollector->CollectVersion(), 1);
    EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersion, "0.00");
    EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersionEx, "zhcn");
    EXPECT_THAT(Checks(), IsEmpty());
}

TEST_F(ProductsTest, HeskTellsTheVersionOfItsUpdater) {
    m_Installation.Write("update.ini", "[Version]\r\nAppVersion=3.3.1\r\nversion=5\r\n");
    m_Installation.Current().MakeFolder("Pak");
    const auto pCollector = test::MakeCollector<HeskCollection>();
    EXPECT_EQ(pCollector->CollectVersion(), 1);
    EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersion, "3.3.1");
    EXPECT_EQ(pCollector->m_CrashReporter.Product.ProductVersionEx, "zhcn");
    EXPECT_THAT(Checks(), IsEmpty());
}

}  // namespace
}  // namespace crashvane
