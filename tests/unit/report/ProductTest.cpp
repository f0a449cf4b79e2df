#include "ReportTest.h"

namespace crashvane {
namespace {

using testing::ElementsAre;

const char Children[] =
    "<ProductName>Client</ProductName><ProductVersion>1.0.0.5</ProductVersion>"
    "<ProductVersionEx>zhcn_hd</ProductVersionEx><ProductThreadType>MT</ProductThreadType>"
    "<ProductBitType>x64</ProductBitType>";

class ProductTest : public ReportTest {
  protected:
    int LoadChildren(const std::string& strChildren) {
        return m_Product.LoadProduct(Parsed("<Product>" + strChildren + "</Product>").Parent());
    }
    int LoadWithout(const std::string& strElement) { return LoadChildren(Replaced(Children, strElement, "")); }
    Product m_Product;
};

TEST_F(ProductTest, LoadsEveryField) {
    EXPECT_EQ(LoadChildren(Children), 1);
    EXPECT_EQ(m_Product.ProductName, "Client");
    EXPECT_EQ(m_Product.ProductVersion, "1.0.0.5");
    EXPECT_EQ(m_Product.ProductVersionEx, "zhcn_hd");
    EXPECT_EQ(m_Product.ProductThreadType, "MT");
    EXPECT_EQ(m_Product.ProductBitType, "x64");
    EXPECT_THAT(Checks(), ElementsAre());
}

TEST_F(ProductTest, SavesItsFieldsInOrder) {
    m_Product = {.ProductName = "Client",
                 .ProductVersion = "1.0.0.5",
                 .ProductVersionEx = "zhcn_hd",
                 .ProductThreadType = "MT",
                 .ProductBitType = "x64"};
    Saved Target;
    EXPECT_EQ(m_Product.SaveProduct(Target.Parent()), 1);
    EXPECT_EQ(Target.Text(), "<Parent><Product>" + std::string(Children) + "</Product></Parent>");
}

TEST_F(ProductTest, SavesEmptyTextsAsElementsWithEmptyText) {
    Saved Target;
    EXPECT_EQ(m_Product.SaveProduct(Target.Parent()), 1);
    EXPECT_EQ(Target.Text(),
              "<Parent><Product><ProductName></ProductName><ProductVersion></ProductVersion>"
              "<ProductVersionEx></ProductVersionEx><ProductThreadType></ProductThreadType>"
              "<ProductBitType></ProductBitType></Product></Parent>");
}

TEST_F(ProductTest, LoadsWithoutItsBitTypeAndLogsOneLine) {
    m_Product.ProductBitType = "old";
    EXPECT_EQ(LoadWithout("<ProductBitType>x64</ProductBitType>"), 1);
    EXPECT_EQ(m_Product.ProductBitType, "old");
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_CHECK_ERROR(nRetCode) in Product::LoadProduct"));
}

TEST_F(ProductTest, LoadsWithoutItsThreadTypeAndStillReadsTheBitType) {
    m_Product.ProductThreadType = "old";
    EXPECT_EQ(LoadWithout("<ProductThreadType>MT</ProductThreadType>"), 1);
    EXPECT_EQ(m_Product.ProductThreadType, "old");
    EXPECT_EQ(m_Product.ProductBitType, "x64");
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_CHECK_ERROR(nRetCode) in Product::LoadProduct"));
}

TEST_F(ProductTest, NeedsNameVersionAndExtendedVersion) {
    EXPECT_EQ(LoadWithout("<ProductName>Client</ProductName>"), 0);
    EXPECT_EQ(LoadWithout("<ProductVersion>1.0.0.5</ProductVersion>"), 0);
    EXPECT_EQ(LoadWithout("<ProductVersionEx>zhcn_hd</ProductVersionEx>"), 0);
    EXPECT_THAT(Checks(), testing::AllOf(testing::SizeIs(3),
                                         testing::Each("ZTLOG_PROCESS_ERROR(nRetCode) in Product::LoadProduct")));
}

TEST_F(ProductTest, FailsWithoutItsElement) {
    EXPECT_EQ(m_Product.LoadProduct(Parsed("").Parent()), 0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(pElement) in Product::LoadProduct"));
}

}  // namespace
}  // namespace crashvane
