#include "ui/RepairRules.h"

#include <gtest/gtest.h>

namespace crashvane::test {
namespace {

constexpr UINT Gbk = 936;

Module ModuleWith(const std::string& strPath, const std::string& strVersion) {
    Module One;
    One.FullPath = strPath;
    One.FileVersion = strVersion;
    return One;
}

RepairFacts Facts() {
    RepairFacts Made;
    Made.strTool = "C:\\Game\\Mendwell.exe";
    Made.nCrashType = 3;
    Made.strDumpKey = "ab12";
    Made.strModule = "engine.dll";
    Made.strModuleVersion = "1.0.0.5";
    Made.uCrashTime = 1567130000;
    Made.uTimeToFailure = 95;
    return Made;
}

// A command line of exactly this many bytes, if nothing cuts it.
std::string LineOf(std::size_t uBytes, const std::string& strKeyEnd = "") {
    const std::string strHead = "C:\\Game\\Mendwell.exe -crash \"3=(k=";
    const std::string strTail = ",m=engine.dll,v=1.0.0.5,t=1567130000,r=95)\"";
    return strHead + std::string(uBytes - strHead.size() - strKeyEnd.size() - strTail.size(), 'k') + strKeyEnd +
           strTail;
}

std::string BuiltFor(const std::string& strLine) {
    RepairFacts Made = Facts();
    const std::size_t uBegin = strLine.find("k=") + 2;
    Made.strDumpKey = strLine.substr(uBegin, strLine.find(",m=") - uBegin);
    return RepairCommandLine(Made);
}

TEST(RepairRulesTest, TheToolLiesTwoLevelsAboveTheExecutable) {
    EXPECT_EQ(RepairToolOf(L"D:\\G\\bin64\\BRENNClientX64.exe"), L"D:\\G\\Mendwell.exe");
    EXPECT_EQ(RepairToolOf(L"D:\\My Games\\bin64\\a b.exe"), L"D:\\My Games\\Mendwell.exe");
    EXPECT_EQ(RepairToolOf(L"D:\\bin64\\a.exe"), L"D:\\Mendwell.exe");
}

TEST(RepairRulesTest, APathWithoutTwoSeparatorsHasNoTool) {
    EXPECT_EQ(RepairToolOf(L"D:\\a.exe"), L"");
    EXPECT_EQ(RepairToolOf(L"a.exe"), L"");
    EXPECT_EQ(RepairToolOf(L""), L"");
    EXPECT_EQ(RepairToolOf(L"D:/G/bin64/a.exe"), L"");
}

TEST(RepairRulesTest, ASeparatorAtTheEndCountsAsOne) {
    EXPECT_EQ(RepairToolOf(L"D:\\G\\bin64\\"), L"D:\\G\\Mendwell.exe");
}

TEST(RepairRulesTest, AFolderWhoseNameIsNothingIsStillAFolder) {
    EXPECT_EQ(RepairToolOf(L"\\bin64\\a.exe"), L"\\Mendwell.exe");
}

TEST(RepairRulesTest, PathsThatReachTheLimitHaveNoTool) {
    const std::wstring strFolder = L"D:\\" + std::wstring(243, L'f');
    EXPECT_EQ(RepairToolOf(strFolder + L"\\b\\a"), strFolder + L"\\Mendwell.exe");  // 259 characters
    EXPECT_EQ(RepairToolOf(strFolder + L"f\\b\\a"), L"");
    EXPECT_EQ(RepairToolOf(L"D:\\G\\b\\" + std::wstring(252, L'a')), L"D:\\G\\Mendwell.exe");
    EXPECT_EQ(RepairToolOf(L"D:\\G\\b\\" + std::wstring(253, L'a')), L"");
}

TEST(RepairRulesTest, TheVersionIsThatOfTheFirstModuleOfTheNameInAnyCase) {
    const std::vector<Module> Modules = {ModuleWith("C:\\Game\\other.dll", "9"),
                                         ModuleWith("C:\\A\\ENGINE.dll", "1.0.0.5"),
                                         ModuleWith("C:\\B\\engine.dll", "2")};
    EXPECT_EQ(ModuleVersionOf(Modules, "Engine.DLL"), "1.0.0.5");
}

TEST(RepairRulesTest, AModuleThatIsNotListedHasNoVersion) {
    EXPECT_EQ(ModuleVersionOf({ModuleWith("C:\\Game\\other.dll", "9")}, "engine.dll"), "");
    EXPECT_EQ(ModuleVersionOf({}, "engine.dll"), "");
}

TEST(RepairRulesTest, ModulesWithoutAFolderArePassedOver) {
    const std::vector<Module> Modules = {ModuleWith("engine.dll", "1"), ModuleWith("C:/Game/engine.dll", "2"),
                                         ModuleWith("\\engine.dll", "3")};
    EXPECT_EQ(ModuleVersionOf(Modules, "engine.dll"), "3");
}

TEST(RepairRulesTest, ATrailByteThatLooksLikeASeparatorIsNone) {
    // 0x81 0x5C is one character of the code page.
    const std::vector<Module> Modules = {ModuleWith("C:\\G\\x\x81\\a.dll", "1"), ModuleWith("C:\\G\\a.dll", "2")};
    EXPECT_EQ(ModuleVersionOf(Modules, "a.dll", Gbk), "2");
    EXPECT_EQ(ModuleVersionOf(Modules, "x\x81\\a.dll", Gbk), "1");
}

TEST(RepairRulesTest, TheCommandLineDescribesTheCrash) {
    EXPECT_EQ(RepairCommandLine(Facts()),
              "C:\\Game\\Mendwell.exe -crash \"3=(k=ab12,m=engine.dll,v=1.0.0.5,t=1567130000,r=95)\"");
}

TEST(RepairRulesTest, AnUnknownVersionLeavesItsFieldEmpty) {
    RepairFacts Made = Facts();
    Made.strModuleVersion.clear();
    EXPECT_EQ(RepairCommandLine(Made),
              "C:\\Game\\Mendwell.exe -crash \"3=(k=ab12,m=engine.dll,v=,t=1567130000,r=95)\"");
}

TEST(RepairRulesTest, BlanksAndQuotesStandAsTheyAre) {
    RepairFacts Made = Facts();
    Made.strTool = "C:\\My Game\\Mendwell.exe";
    Made.strModule = "a \"b\" 100%s.dll";
    EXPECT_EQ(RepairCommandLine(Made),
              "C:\\My Game\\Mendwell.exe -crash \"3=(k=ab12,m=a \"b\" 100%s.dll,v=1.0.0.5,t=1567130000,r=95)\"");
}

TEST(RepairRulesTest, TimesAreUnsignedAndOf64Bits) {
    RepairFacts Made = Facts();
    Made.uCrashTime = 18446744073709551615ULL;
    Made.uTimeToFailure = 4294967296ULL;
    EXPECT_EQ(RepairCommandLine(Made),
              "C:\\Game\\Mendwell.exe -crash \"3=(k=ab12,m=engine.dll,v=1.0.0.5,"
              "t=18446744073709551615,r=4294967296)\"");
}

TEST(RepairRulesTest, ALineOf519BytesIsWholeAndALongerOneIsCutToThem) {
    EXPECT_EQ(BuiltFor(LineOf(518)), LineOf(518));
    EXPECT_EQ(BuiltFor(LineOf(519)), LineOf(519));
    EXPECT_EQ(BuiltFor(LineOf(520)), LineOf(520).substr(0, 519));
    EXPECT_EQ(BuiltFor(LineOf(521)), LineOf(521).substr(0, 519));
}

TEST(RepairRulesTest, TheCutKnowsBytesAndNoCharacters) {
    RepairFacts Made = Facts();
    const std::string strHead = "C:\\Game\\Mendwell.exe -crash \"3=(k=";
    Made.strDumpKey = std::string(518 - strHead.size(), 'k') + "\xB4\xED";
    EXPECT_EQ(RepairCommandLine(Made), strHead + std::string(518 - strHead.size(), 'k') + "\xB4");
}

}  // namespace
}  // namespace crashvane::test
