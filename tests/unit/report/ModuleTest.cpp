#include "ReportTest.h"

namespace crashvane {
namespace {

using testing::ElementsAre;

const char Text[] =
    "<Module FullPath=\"C:\\Game\\a.dll\" BaseOfImage=\"0x10000000\" SizeOfImage=\"0x1000\" "
    "TimeDateStamp=\"1567000001\" FileVersion=\"1.1\" ProductVersion=\"2.1\" />";

class ModuleTest : public ReportTest {
  protected:
    int LoadWith(const std::string& strFrom, const std::string& strTo) {
        return m_Module.LoadMachine(Parsed(Replaced(Text, strFrom, strTo)).First());
    }
    Module m_Module;
};

TEST_F(ModuleTest, LoadsEveryAttribute) {
    EXPECT_EQ(m_Module.LoadMachine(Parsed(Text).First()), 1);
    EXPECT_EQ(m_Module.FullPath, "C:\\Game\\a.dll");
    EXPECT_EQ(m_Module.BaseOfImage, 268435456u);
    EXPECT_EQ(m_Module.SizeOfImage, 4096u);
    EXPECT_EQ(m_Module.TimeDateStamp, 1567000001u);
    EXPECT_EQ(m_Module.FileVersion, "1.1");
    EXPECT_EQ(m_Module.ProductVersion, "2.1");
}

TEST_F(ModuleTest, SavesItsAttributesInOrder) {
    m_Module = {.FullPath = "C:\\Game\\a.dll",
                .BaseOfImage = 0x10000000,
                .SizeOfImage = 4096,
                .TimeDateStamp = 1567000001,
                .FileVersion = "1.1",
                .ProductVersion = "2.1"};
    Saved Target;
    EXPECT_EQ(m_Module.SaveModule(Target.Parent()), 1);
    EXPECT_EQ(Target.Text(), "<Parent>" + std::string(Text) + "</Parent>");
}

TEST_F(ModuleTest, SavesTheLargestNumbers) {
    m_Module.BaseOfImage = (std::numeric_limits<unsigned long long>::max)();
    m_Module.SizeOfImage = 0xABCDEF01;
    m_Module.TimeDateStamp = 4294967295;
    Saved Target;
    EXPECT_EQ(m_Module.SaveModule(Target.Parent()), 1);
    EXPECT_EQ(Target.Text(),
              "<Parent><Module FullPath=\"\" BaseOfImage=\"0xffffffffffffffff\" SizeOfImage=\"0xabcdef01\" "
              "TimeDateStamp=\"4294967295\" FileVersion=\"\" ProductVersion=\"\" /></Parent>");
}

TEST_F(ModuleTest, NeedsEveryAttribute) {
    for (const char* pszAttribute :
         {"FullPath=\"C:\\Game\\a.dll\"", "BaseOfImage=\"0x10000000\"", "SizeOfImage=\"0x1000\"",
          "TimeDateStamp=\"1567000001\"", "FileVersion=\"1.1\"", "ProductVersion=\"2.1\""}) {
        EXPECT_EQ(LoadWith(pszAttribute, ""), 0) << pszAttribute;
    }
    EXPECT_THAT(Checks(), testing::AllOf(testing::SizeIs(6),
                                         testing::Each("ZTLOG_PROCESS_ERROR(nRetCode) in Module::LoadMachine")));
}

TEST_F(ModuleTest, FailsWithEmptyNumbersButNotWithEmptyTexts) {
    EXPECT_EQ(LoadWith("0x10000000", ""), 0);
    EXPECT_EQ(LoadWith("0x1000\"", "\""), 0);
    EXPECT_EQ(LoadWith("1567000001", ""), 0);
    EXPECT_EQ(LoadWith("C:\\Game\\a.dll", ""), 1);
    EXPECT_EQ(LoadWith("\"1.1\"", "\"\""), 1);
    EXPECT_EQ(LoadWith("2.1", ""), 1);
}

TEST_F(ModuleTest, ReadsNumbersAsTheRuntimeScansThem) {
    m_Module.BaseOfImage = 77;
    EXPECT_EQ(LoadWith("0x10000000", "10000000"), 1);
    EXPECT_EQ(m_Module.BaseOfImage, 77u);
    EXPECT_EQ(LoadWith("0x10000000", "0x1FFFFFFFFFFFFFFFF"), 1);
    EXPECT_EQ(m_Module.BaseOfImage, 18446744073709551615u);
    EXPECT_EQ(LoadWith("\"0x1000\"", "\"0x1ffffffff\""), 1);
    EXPECT_EQ(m_Module.SizeOfImage, 4294967295u);
    EXPECT_EQ(LoadWith("1567000001", "-2"), 1);
    EXPECT_EQ(m_Module.TimeDateStamp, 4294967294u);
    EXPECT_EQ(LoadWith("1567000001", "4294967296"), 1);
    EXPECT_EQ(m_Module.TimeDateStamp, 0u);
}

}  // namespace
}  // namespace crashvane
