#include "ReportTest.h"

namespace crashvane {
namespace {

using testing::ElementsAre;

class CrashReporterLoad : public ReportTest {
  protected:
    int LoadWith(const std::string& strFrom, const std::string& strTo) {
        return LoadText(Replaced(SampleReport, strFrom, strTo));
    }
};

TEST_F(CrashReporterLoad, ReadsEveryPart) {
    EXPECT_EQ(LoadText(SampleReport), 1);
    EXPECT_EQ(m_Report.Project, "QRL");
    EXPECT_EQ(m_Report.Exception.DumpFileName, "C:\\Game\\crash.dmp");
    EXPECT_EQ(m_Report.Exception.ExceptionCode, 3221225477u);
    EXPECT_EQ(m_Report.Product.ProductVersionEx, "zhcn_hd");
    EXPECT_EQ(m_Report.Machine.VideoCardInfo.VideoCardMemory.AvailMemory, 6001u);
    ASSERT_EQ(m_Report.Modules.size(), 2u);
    EXPECT_EQ(m_Report.Modules[0].FullPath, "C:\\Game\\a.dll");
    EXPECT_EQ(m_Report.Modules[1].BaseOfImage, 0x7ff6a1b20000u);
    EXPECT_EQ(m_Report.Modules[1].ProductVersion, "2.2");
    EXPECT_THAT(m_Report.CustomFiles, ElementsAre("C:\\Game\\logs\\first.log", "C:\\Game\\logs\\second.log"));
    EXPECT_THAT(m_Report.CustomInfos, ElementsAre("one line"));
    EXPECT_THAT(Checks(), ElementsAre());
}

TEST_F(CrashReporterLoad, BeginsWithZeroNumbers) {
    EXPECT_EQ(m_Report.Exception.ExceptionCode, 0u);
    EXPECT_EQ(m_Report.Exception.ExceptionAddress, 0u);
    EXPECT_EQ(m_Report.Exception.ExceptionTime, 0);
    EXPECT_EQ(m_Report.Exception.TimeToFailure, 0);
    EXPECT_EQ(m_Report.Exception.ProcessInstance, 0u);
    EXPECT_EQ(m_Report.Exception.ProcessMemUsed.WorkingSetSize, 0u);
    EXPECT_EQ(m_Report.Exception.ProcessMemPeak.PagefileUsage, 0u);
    EXPECT_EQ(m_Report.Machine.PhysMemory.TotalMemory, 0u);
    EXPECT_EQ(Module().BaseOfImage, 0u);
    EXPECT_EQ(Module().SizeOfImage, 0u);
    EXPECT_EQ(Module().TimeDateStamp, 0u);
}

TEST_F(CrashReporterLoad, NeedsAFileName) {
    EXPECT_EQ(m_Report.Load(""), 0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(!strFileName.empty()) in CrashReporter::Load"));
}

TEST_F(CrashReporterLoad, LogsTheLineOfTheCheck) {
    m_Report.Load("");
    EXPECT_THAT(m_Log.Lines(),
                ElementsAre(testing::MatchesRegex(
                    "ZTLOG_PROCESS_ERROR\\(!strFileName.empty\\(\\)\\) at line \\d+ in CrashReporter::Load")));
}

TEST_F(CrashReporterLoad, FailsForAFileThatIsMissingEmptyOrAFolder) {
    EXPECT_EQ(m_Report.Load(m_strFile), 0);
    EXPECT_EQ(LoadText(""), 0);
    EXPECT_EQ(m_Report.Load("."), 0);
    EXPECT_THAT(Checks(), testing::AllOf(testing::SizeIs(3),
                                         testing::Each("ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Load")));
}

TEST_F(CrashReporterLoad, FailsForAFileThatAnotherProcessHoldsUnshared) {
    Write(SampleReport);
    const HANDLE hFile = CreateFileA(m_strFile.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(hFile, INVALID_HANDLE_VALUE);
    EXPECT_EQ(m_Report.Load(m_strFile), 0);
    CloseHandle(hFile);
    EXPECT_EQ(m_Report.Load(m_strFile), 1);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Load"));
}

TEST_F(CrashReporterLoad, LeavesTheFileClosed) {
    EXPECT_EQ(LoadText(SampleReport), 1);
    EXPECT_TRUE(DeleteFileA(m_strFile.c_str()));
    EXPECT_EQ(LoadText("<"), 0);
    EXPECT_TRUE(DeleteFileA(m_strFile.c_str()));
}

TEST_F(CrashReporterLoad, FailsForAForeignRoot) {
    EXPECT_EQ(LoadText("<?xml version=\"1.0\"?><CrashReport Project=\"QRL\"></CrashReport>"), 0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(pElement) in CrashReporter::Load"));
}

TEST_F(CrashReporterLoad, IgnoresOtherElementsBesideTheRoot) {
    const std::string strText = Replaced(SampleReport, "<CrashReporter ", "<First><Custom /></First><CrashReporter ");
    EXPECT_EQ(LoadText(strText + "<CrashReporter Project=\"second\" /><Last>"), 0) << "the unclosed one is a mistake";
    EXPECT_EQ(LoadText(strText + "<CrashReporter Project=\"second\" /><Last />"), 1);
    EXPECT_EQ(m_Report.Project, "QRL");
}

TEST_F(CrashReporterLoad, NeedsTheProject) {
    EXPECT_EQ(LoadWith(" Project=\"QRL\"", ""), 0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Load"));
    EXPECT_EQ(m_Report.Product.ProductName, "");
}

TEST_F(CrashReporterLoad, TakesAnEmptyProject) {
    m_Report.Project = "old";
    EXPECT_EQ(LoadWith("\"QRL\"", "\"\""), 1);
    EXPECT_EQ(m_Report.Project, "");
}

TEST_F(CrashReporterLoad, LogsTheRecordAndThenItself) {
    EXPECT_EQ(LoadWith("<ProcessInstance>4<", "<ProcessInstance><"), 0);
    EXPECT_EQ(LoadWith("<ProductName>Client</ProductName>", ""), 0);
    EXPECT_EQ(LoadWith("<PhysMemory TotalMemory=\"16001\"", "<PhysMemory"), 0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(nRetCode) in Exception::LoadException",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Load",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in Product::LoadProduct",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Load",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in Memory::LoadMemory",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in Machine::LoadMachine",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Load"));
}

TEST_F(CrashReporterLoad, FailsWithTheModuleThatLacksAnAttribute) {
    EXPECT_EQ(LoadWith(" ProductVersion=\"2.2\"", ""), 0);
    EXPECT_EQ(m_Report.Modules.size(), 1u);
    EXPECT_THAT(m_Report.CustomFiles, ElementsAre());
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(nRetCode) in Module::LoadMachine",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::LoadModule",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::LoadVectorData",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Load"));
}

TEST_F(CrashReporterLoad, BeginsEveryModuleAtZero) {
    EXPECT_EQ(LoadWith("\"0x2000\"", "\"2000\""), 1);
    ASSERT_EQ(m_Report.Modules.size(), 2u);
    EXPECT_EQ(m_Report.Modules[0].SizeOfImage, 0x1000u);
    EXPECT_EQ(m_Report.Modules[1].SizeOfImage, 0u);
}

TEST_F(CrashReporterLoad, NeedsTheModulesElement) {
    EXPECT_EQ(LoadText(Replaced(Replaced(SampleReport, "<Modules>", "<Others>"), "</Modules>", "</Others>")), 0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(pElement) in CrashReporter::LoadVectorData",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Load"));
}

TEST_F(CrashReporterLoad, NeedsTheCustomElement) {
    EXPECT_EQ(LoadText(Replaced(Replaced(SampleReport, "<Custom>", "<Others>"), "</Custom>", "</Others>")), 0);
    EXPECT_EQ(m_Report.Modules.size(), 2u);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(pElement) in CrashReporter::LoadVectorData",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Load"));
}

// The report with other contents of the two lists.
std::string WithLists(const std::string& strModules, const std::string& strCustom) {
    const std::string strText = SampleReport;
    return strText.substr(0, strText.find("    <Modules>")) + strModules + strCustom + "</CrashReporter>";
}

TEST_F(CrashReporterLoad, TakesEmptyLists) {
    EXPECT_EQ(LoadText(WithLists("<Modules />", "<Custom />")), 1);
    EXPECT_EQ(LoadText(WithLists("<Modules></Modules>", "<Custom></Custom>")), 1);
    EXPECT_TRUE(m_Report.Modules.empty());
    EXPECT_TRUE(m_Report.CustomFiles.empty());
    EXPECT_TRUE(m_Report.CustomInfos.empty());
    EXPECT_THAT(Checks(), ElementsAre());
}

TEST_F(CrashReporterLoad, FindsModulesBetweenOtherElementsInOrder) {
    const std::string strRest =
        " BaseOfImage='0x1' SizeOfImage='0x1' TimeDateStamp='1' FileVersion='' ProductVersion=''";
    EXPECT_EQ(LoadText(WithLists("<Modules><Other /><Module FullPath='a'" + strRest + "/>text<!-- Module -->" +
                                     "<module /><Module FullPath='b'" + strRest + "><Module /></Module>" +
                                     "<Other><Module /></Other><Module FullPath='c'" + strRest + "/></Modules>",
                                 "<Custom />")),
              1);
    ASSERT_EQ(m_Report.Modules.size(), 3u);
    EXPECT_EQ(m_Report.Modules[0].FullPath, "a");
    EXPECT_EQ(m_Report.Modules[1].FullPath, "b");
    EXPECT_EQ(m_Report.Modules[2].FullPath, "c");
}

TEST_F(CrashReporterLoad, ReadsTheFirstOfTwoCustomElementsAlone) {
    EXPECT_EQ(LoadText(WithLists("<Modules />",
                                 "<Custom><CustomFile>a</CustomFile></Custom>"
                                 "<Custom><CustomFile>b</CustomFile><CustomInfo>c</CustomInfo></Custom>")),
              1);
    EXPECT_THAT(m_Report.CustomFiles, ElementsAre("a"));
    EXPECT_THAT(m_Report.CustomInfos, ElementsAre());
}

TEST_F(CrashReporterLoad, TakesCustomElementsInAnyMixtureAndWithoutContent) {
    EXPECT_EQ(LoadText(WithLists("<Modules />",
                                 "<Custom><CustomInfo>1</CustomInfo><CustomFile>a</CustomFile><Other />"
                                 "<CustomInfo /><CustomFile></CustomFile><CustomInfo>3</CustomInfo></Custom>")),
              1);
    EXPECT_THAT(m_Report.CustomFiles, ElementsAre("a", ""));
    EXPECT_THAT(m_Report.CustomInfos, ElementsAre("1", "", "3"));
}

TEST_F(CrashReporterLoad, FindsTheRootsChildrenInAnyOrder) {
    const std::string strText = SampleReport;
    const std::string::size_type uProduct = strText.find("    <Product>");
    const std::string::size_type uEnd = strText.find("</CrashReporter>");
    const std::string::size_type uException = strText.find("    <Exception>");
    EXPECT_EQ(LoadText(strText.substr(0, uException) + strText.substr(uProduct, uEnd - uProduct) +
                       strText.substr(uException, uProduct - uException) + strText.substr(uEnd)),
              1);
    EXPECT_EQ(m_Report.Exception.DumpKey, "ab12cd34");
    EXPECT_EQ(m_Report.Modules.size(), 2u);
}

TEST_F(CrashReporterLoad, AppendsToItsLists) {
    m_Report.CustomInfos = {"zero"};
    EXPECT_EQ(LoadText(SampleReport), 1);
    EXPECT_EQ(m_Report.Load(m_strFile), 1);
    EXPECT_EQ(m_Report.Modules.size(), 4u);
    EXPECT_EQ(m_Report.CustomFiles.size(), 4u);
    EXPECT_THAT(m_Report.CustomInfos, ElementsAre("zero", "one line", "one line"));
}

TEST_F(CrashReporterLoad, KeepsTheOptionalFieldsThatTheFileLacks) {
    m_Report.Product.ProductThreadType = "old thread";
    m_Report.Product.ProductBitType = "old bits";
    EXPECT_EQ(LoadText(Replaced(Replaced(SampleReport, "<ProductThreadType>MT</ProductThreadType>", ""),
                                "<ProductBitType>x64</ProductBitType>", "")),
              1);
    EXPECT_EQ(m_Report.Product.ProductThreadType, "old thread");
    EXPECT_EQ(m_Report.Product.ProductBitType, "old bits");
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_CHECK_ERROR(nRetCode) in Product::LoadProduct",
                                      "ZTLOG_CHECK_ERROR(nRetCode) in Product::LoadProduct"));
}

TEST_F(CrashReporterLoad, TrimsAndCondensesWhiteSpaceBeforeAnythingWasSaved) {
    EXPECT_EQ(LoadWith("Access violation", " \t Access\n\n  violation \n"), 1);
    EXPECT_EQ(m_Report.Exception.ExceptionDescription, "Access violation");
    EXPECT_EQ(LoadWith("Access violation", "   "), 1);
    EXPECT_EQ(m_Report.Exception.ExceptionDescription, "");
}

TEST_F(CrashReporterLoad, KeepsWhiteSpaceAsItStandsAfterASave) {
    EXPECT_EQ(CrashReporter().Save(m_strFile), 1);
    EXPECT_EQ(LoadWith("Access violation", " \t Access\r\n\r  violation "), 1);
    EXPECT_EQ(m_Report.Exception.ExceptionDescription, " \t Access\n\n  violation ");
    // Blanks alone make no text node in either way.
    EXPECT_EQ(LoadWith("Access violation", "   "), 1);
    EXPECT_EQ(m_Report.Exception.ExceptionDescription, "");
}

TEST_F(CrashReporterLoad, ReadsEscapesAndReferences) {
    EXPECT_EQ(LoadWith("Access violation", "&lt;a&gt; &amp; &quot;b&quot; &apos;c&apos; &#65;&#x42;&#xB0;"), 1);
    EXPECT_EQ(m_Report.Exception.ExceptionDescription, "<a> & \"b\" 'c' AB\xB0");
}

TEST_F(CrashReporterLoad, PassesDoubleByteTextThrough) {
    // Two characters of code page 936, of which the second ends in an ASCII byte.
    EXPECT_EQ(LoadWith("<ProductName>Client<", "<ProductName>\xD6\xD0\x81\x5C<"), 1);
    EXPECT_EQ(m_Report.Product.ProductName, "\xD6\xD0\x81\x5C");
}

TEST_F(CrashReporterLoad, PassesHalfACharacterThroughAndReadsTheNextField) {
    EXPECT_EQ(LoadWith("<ProductName>Client<", "<ProductName>Client\xD6<"), 1);
    EXPECT_EQ(m_Report.Product.ProductName, "Client\xD6");
    EXPECT_EQ(m_Report.Product.ProductVersion, "1.0.0.5");
    EXPECT_EQ(LoadWith("\"C:\\Game\\a.dll\"", "\"C:\\Game\\\xD6\""), 1);
    EXPECT_EQ(m_Report.Modules[2].FullPath, "C:\\Game\\\xD6");
    EXPECT_EQ(m_Report.Modules[2].FileVersion, "1.1");
}

TEST_F(CrashReporterLoad, TakesTextForBytesWhateverTheFileDeclares) {
    const std::string strField = "\xC3\xA9\xD6\xF0";
    for (const char* pszDeclaration : {"<?xml version=\"1.0\" encoding=\"UTF-8\" ?>", "<?xml version=\"1.0\" ?>", ""}) {
        const std::string strText =
            Replaced(SampleReport, "<?xml version=\"1.0\" encoding=\"gb2312\" ?>", pszDeclaration);
        EXPECT_EQ(LoadText(Replaced(strText, "Access violation", strField)), 1) << pszDeclaration;
        EXPECT_EQ(m_Report.Exception.ExceptionDescription, strField) << pszDeclaration;
    }
}

TEST_F(CrashReporterLoad, TakesFormatSignsForText) {
    const std::string strSigns = "%s%n%d%%%x%p%I64u%100000d";
    EXPECT_EQ(LoadWith("Access violation", strSigns), 1);
    EXPECT_EQ(m_Report.Exception.ExceptionDescription, strSigns);
}

}  // namespace
}  // namespace crashvane
