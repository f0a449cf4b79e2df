#include "collection/Registry.h"

#include <gtest/gtest.h>

#include <typeinfo>

#include "collection/BrennCollection.h"
#include "collection/Installation.h"
#include "collection/Products.h"

namespace crashvane {
namespace {

struct Row {
    const char* pszKey;
    const char* pszProjectName;
    const std::type_info* pClass;
    int nImageId;  // with no file and no executable's name around
};

class RegistryTable : public testing::TestWithParam<Row> {};

TEST_P(RegistryTable, GivesTheClassOfAKeyInAnyLetterCase) {
    const test::Installation Nothing;
    for (const std::string& strKey : test::Spellings(GetParam().pszKey)) {
        Collection* pCollection = CreateCollection(strKey);
        ASSERT_NE(pCollection, nullptr);
        EXPECT_EQ(typeid(*pCollection), *GetParam().pClass) << strKey;
        EXPECT_EQ(pCollection->GetProjectName(), GetParam().pszProjectName);
        EXPECT_EQ(pCollection->GetProjectImgId(), GetParam().nImageId);
    }
}

TEST_P(RegistryTable, GivesTheSameObjectForTheSameKey) {
    EXPECT_EQ(CreateCollection(GetParam().pszKey), CreateCollection(GetParam().pszKey));
}

TEST_P(RegistryTable, GivesTheKeyByReference) {
    Collection* pCollection = CreateCollection(GetParam().pszKey);
    EXPECT_EQ(&pCollection->GetProjectName(), &pCollection->GetProjectName());
}

INSTANTIATE_TEST_SUITE_P(
    Keys, RegistryTable,
    testing::Values(
        Row{"brenn", "BRENN", &typeid(BrennCollection), 130}, Row{"fyrn", "FYRN", &typeid(FyrnCollection), 131},
        Row{"galdor", "GALDOR", &typeid(GaldorCollection), 132}, Row{"cymra", "CYMRA", &typeid(CymraCollection), 136},
        Row{"hesk", "HESK", &typeid(HeskCollection), 144}, Row{"orvel", "ORVEL", &typeid(OrvelCollection), 146},
        Row{"xx", "XX", &typeid(XXCollection), 153}, Row{"talis", "TALIS", &typeid(TalisCollection), 154},
        Row{"tool", "TOOL", &typeid(ToolCollection), 135}, Row{"dovek", "DOVEK", &typeid(DovekCollection), 135},
        Row{"essarn", "ESSARN", &typeid(EssarnCollection), 135},
        Row{"editor", "EDITOR", &typeid(EditorCollection), 135},
        Row{"ivorelgameclient", "IVORELGAMECLIENT", &typeid(IvorelGameClientCollection), 135},
        Row{"mendwell", "MENDWELL", &typeid(MendwellCollection), 135},
        Row{"qrl", "QRL", &typeid(DefaultCollection), 135}));

INSTANTIATE_TEST_SUITE_P(OtherTexts, RegistryTable,
                         testing::Values(Row{"", "QRL", &typeid(DefaultCollection), 135},
                                         Row{"abc", "QRL", &typeid(DefaultCollection), 135},
                                         Row{" brenn", "QRL", &typeid(DefaultCollection), 135},
                                         Row{"brenn ", "QRL", &typeid(DefaultCollection), 135},
                                         Row{"bren", "QRL", &typeid(DefaultCollection), 135},
                                         Row{"x", "QRL", &typeid(DefaultCollection), 135},
                                         Row{"xxx", "QRL", &typeid(DefaultCollection), 135},
                                         Row{"\xD3\xCE\xCF\xB7", "QRL", &typeid(DefaultCollection), 135}));

TEST(Registry, ComparesAllBytesOfAKey) {
    Collection* pCollection = CreateCollection(std::string("TOOL\0", 5));
    EXPECT_EQ(pCollection->GetProjectName(), "QRL");
}

TEST(Registry, GivesDifferentObjectsForDifferentKeys) {
    EXPECT_NE(CreateCollection("TOOL"), CreateCollection("EDITOR"));
    EXPECT_EQ(CreateCollection("abc"), CreateCollection("QRL"));
}

TEST(Registry, GivesEmptyCollectors) {
    const LogCapture Log;
    for (const char* pszKey : {"BRENN", "FYRN", "GALDOR", "CYMRA", "HESK", "ORVEL", "XX", "TALIS", "TOOL", "DOVEK",
                               "ESSARN", "EDITOR", "IVORELGAMECLIENT", "MENDWELL", "QRL"}) {
        Collection* pCollection = CreateCollection(pszKey);
        const CrashReporter& Report = pCollection->m_CrashReporter;
        EXPECT_EQ(pCollection->GetProcessName(), "");
        EXPECT_EQ(pCollection->m_strAccount + pCollection->m_strRoleName + pCollection->m_strRegionName +
                      pCollection->m_strServerName + pCollection->m_strCrashReportFile + pCollection->m_strProcessName,
                  "");
        EXPECT_EQ(Report.Project + Report.Product.ProductName + Report.Product.ProductBitType, "");
        EXPECT_TRUE(Report.Modules.empty() && Report.CustomFiles.empty() && Report.CustomInfos.empty());
    }
    EXPECT_TRUE(Log.Lines().empty());
}

TEST(Registry, ForcesTheSendingOfOneProductOnly) {
    for (const char* pszKey : {"BRENN", "FYRN", "CYMRA", "HESK", "ORVEL", "XX", "TALIS", "TOOL", "DOVEK", "ESSARN",
                               "EDITOR", "IVORELGAMECLIENT", "MENDWELL", "QRL"}) {
        EXPECT_FALSE(CreateCollection(pszKey)->IsForceSend()) << pszKey;
    }
    EXPECT_TRUE(CreateCollection("GALDOR")->IsForceSend());
}

}  // namespace
}  // namespace crashvane
