#include "ReportTest.h"

namespace crashvane {
namespace {

using testing::ElementsAre;

class CrashReporterSave : public ReportTest {
  protected:
    // What a text becomes in the file.
    std::string SavedDescription(const std::string& strText) {
        m_Report.Exception.ExceptionDescription = strText;
        EXPECT_EQ(m_Report.Save(m_strFile), 1);
        const std::string strBytes = Bytes();
        const std::string strStart = "<ExceptionDescription>";
        const std::string::size_type uFrom = strBytes.find(strStart) + strStart.size();
        return strBytes.substr(uFrom, strBytes.find("</ExceptionDescription>") - uFrom);
    }
    std::string SavedProject(const std::string& strText) {
        m_Report.Project = strText;
        EXPECT_EQ(m_Report.Save(m_strFile), 1);
        const std::string strBytes = Bytes();
        const std::string strStart = " Project=";
        const std::string::size_type uFrom = strBytes.find(strStart) + strStart.size();
        return strBytes.substr(uFrom, strBytes.find(">\r\n", uFrom) - uFrom);
    }
};

std::string WithCarriageReturns(const std::string& strText) {
    std::string strResult;
    for (const char cByte : strText) {
        strResult += cByte == '\n' ? std::string("\r\n") : std::string(1, cByte);
    }
    return strResult;
}

TEST_F(CrashReporterSave, WritesTheWholeFileByteForByte) {
    m_Report.Project = "QRL";
    m_Report.Exception.ExceptionModuleName = "engine.dll";
    m_Report.Exception.ExceptionCode = 0xc0000005;
    m_Report.Exception.ExceptionDescription = "Access violation";
    m_Report.Exception.ExceptionAddress = 0x7ff6a1b20000;
    m_Report.Exception.DumpFileName = "C:\\Game\\crash.dmp";
    m_Report.Exception.DumpKey = "ab12cd34";
    m_Report.Exception.DumpGuid = "{6F9619FF-8B86-D011-B42D-00CF4FC964FF}";
    m_Report.Exception.ExceptionTime = 1567130000;
    m_Report.Exception.TimeToFailure = 125;
    m_Report.Exception.ProcessName = "Client.exe";
    m_Report.Exception.ProcessInstance = 4;
    m_Report.Exception.ProcessMemUsed = {.WorkingSetSize = 601, .PagefileUsage = 701};
    m_Report.Exception.ProcessMemPeak = {.WorkingSetSize = 801, .PagefileUsage = 901};
    m_Report.Product = {"Client", "1.0.0.5", "zhcn_hd", "MT", "x64"};
    m_Report.Machine = {
        "192.168.1.7",   "4C4C4544",    "4C4C4545",    "Windows 10",
        "CPU @ 3.60GHz", {16001, 4001}, {20001, 5001}, {"Graphics 8", "graphics.sys", "31.0.15", {8001, 6001}}};
    m_Report.Modules = {{"C:\\Game\\a.dll", 0x10000000, 4096, 1567000001, "1.1", "2.1"},
                        {"C:\\Game\\b.dll", 0x7ff6a1b20000, 8192, 1567000002, "1.2", "2.2"}};
    m_Report.CustomFiles = {"C:\\Game\\logs\\first.log", "C:\\Game\\logs\\second.log"};
    m_Report.CustomInfos = {"one line"};
    EXPECT_EQ(m_Report.Save(m_strFile), 1);
    EXPECT_EQ(Bytes(), WithCarriageReturns(SampleReport));
    EXPECT_THAT(Checks(), ElementsAre());
}

TEST_F(CrashReporterSave, WritesEverySectionOfAnEmptyDocument) {
    EXPECT_EQ(m_Report.Save(m_strFile), 1);
    EXPECT_EQ(Bytes(),
              "<?xml version=\"1.0\" encoding=\"gb2312\" ?>\r\n"
              "<CrashReporter Project=\"\">\r\n"
              "    <Exception>\r\n"
              "        <ExceptionModuleName></ExceptionModuleName>\r\n"
              "        <ExceptionCode>0x0</ExceptionCode>\r\n"
              "        <ExceptionDescription></ExceptionDescription>\r\n"
              "        <ExceptionAddress>0X0000000000000000</ExceptionAddress>\r\n"
              "        <DumpFileName></DumpFileName>\r\n"
              "        <DumpKey></DumpKey>\r\n"
              "        <DumpGuid></DumpGuid>\r\n"
              "        <ExceptionTime>0</ExceptionTime>\r\n"
              "        <TimeToFailure>0</TimeToFailure>\r\n"
              "        <ProcessName></ProcessName>\r\n"
              "        <ProcessInstance>0</ProcessInstance>\r\n"
              "        <ProcessMemUsed PagefileUsage=\"0\" WorkingSetSize=\"0\" />\r\n"
              "        <ProcessMemPeak PagefileUsage=\"0\" WorkingSetSize=\"0\" />\r\n"
              "    </Exception>\r\n"
              "    <Product>\r\n"
              "        <ProductName></ProductName>\r\n"
              "        <ProductVersion></ProductVersion>\r\n"
              "        <ProductVersionEx></ProductVersionEx>\r\n"
              "        <ProductThreadType></ProductThreadType>\r\n"
              "        <ProductBitType></ProductBitType>\r\n"
              "    </Product>\r\n"
              "    <Machine>\r\n"
              "        <IP></IP>\r\n"
              "        <UUID></UUID>\r\n"
              "        <NewUUID></NewUUID>\r\n"
              "        <OS></OS>\r\n"
              "        <Processor></Processor>\r\n"
              "        <PhysMemory TotalMemory=\"0\" AvailMemory=\"0\" />\r\n"
              "        <Pagefile TotalMemory=\"0\" AvailMemory=\"0\" />\r\n"
              "        <VideoCardInfo>\r\n"
              "            <VideoCardDescription></VideoCardDescription>\r\n"
              "            <VideoCardDriver></VideoCardDriver>\r\n"
              "            <VideoDriverVersion></VideoDriverVersion>\r\n"
              "            <VideoCardMemory TotalMemory=\"0\" AvailMemory=\"0\" />\r\n"
              "        </VideoCardInfo>\r\n"
              "    </Machine>\r\n"
              "    <Modules />\r\n"
              "    <Custom />\r\n"
              "</CrashReporter>\r\n");
}

TEST_F(CrashReporterSave, GivesEveryValueBackToALoad) {
    Write(WithCarriageReturns(SampleReport));
    EXPECT_EQ(m_Report.Load(m_strFile), 1);
    DeleteFileA(m_strFile.c_str());
    EXPECT_EQ(m_Report.Save(m_strFile), 1);
    EXPECT_EQ(Bytes(), WithCarriageReturns(SampleReport));
}

TEST_F(CrashReporterSave, ReplacesALongerFile) {
    Write(std::string(100000, '#'));
    EXPECT_EQ(m_Report.Save(m_strFile), 1);
    EXPECT_EQ(Bytes().find('#'), std::string::npos);
}

TEST_F(CrashReporterSave, EscapesMarkupInTexts) {
    EXPECT_EQ(SavedDescription("a & b < c > d \" e ' f"), "a &amp; b &lt; c &gt; d &quot; e &apos; f");
    EXPECT_EQ(SavedDescription("&lt;"), "&amp;lt;");
}

TEST_F(CrashReporterSave, EscapesMarkupInAttributesAndPicksTheirQuotes) {
    EXPECT_EQ(SavedProject("a & b < c > d ' e"), "\"a &amp; b &lt; c &gt; d &apos; e\"");
    EXPECT_EQ(SavedProject("a \" b ' c"), "'a &quot; b &apos; c'");
}

TEST_F(CrashReporterSave, WritesControlBytesAsReferences) {
    EXPECT_EQ(SavedDescription(std::string("\0\t\n\r\x1f", 5)), "&#x00;&#x09;&#x0A;&#x0D;&#x1F;");
    EXPECT_EQ(SavedProject("a\nb"), "\"a&#x0A;b\"");
}

TEST_F(CrashReporterSave, WritesHighBytesUnchanged) {
    std::string strHigh;
    for (int nByte = 127; nByte < 256; ++nByte) {
        strHigh += static_cast<char>(nByte);
    }
    EXPECT_EQ(SavedDescription(strHigh), strHigh);
    EXPECT_EQ(SavedProject(strHigh), "\"" + strHigh + "\"");
}

TEST_F(CrashReporterSave, WritesFormatSignsUnchanged) {
    EXPECT_EQ(SavedDescription("%s%n%d%%%x"), "%s%n%d%%%x");
    EXPECT_EQ(SavedProject("%s%n%d%%%x"), "\"%s%n%d%%%x\"");
}

TEST_F(CrashReporterSave, GivesBackEveryByteOfATextAndAnAttribute) {
    std::string strAll;
    for (int nByte = 0; nByte < 256; ++nByte) {
        strAll += static_cast<char>(nByte);
    }
    m_Report.Project = strAll;
    m_Report.Product.ProductName = strAll;
    m_Report.Modules = {{strAll, 1, 2, 3, strAll, strAll}};
    m_Report.CustomFiles = {strAll, "", "a&b<c>d\"e'f"};
    m_Report.CustomInfos = {"\xD6\xD0\xCE\xC4", "\xD6"};
    EXPECT_EQ(m_Report.Save(m_strFile), 1);
    CrashReporter Loaded;
    EXPECT_EQ(Loaded.Load(m_strFile), 1);
    EXPECT_EQ(Loaded.Project, strAll);
    EXPECT_EQ(Loaded.Product.ProductName, strAll);
    ASSERT_EQ(Loaded.Modules.size(), 1u);
    EXPECT_EQ(Loaded.Modules[0].FullPath, strAll);
    EXPECT_EQ(Loaded.Modules[0].ProductVersion, strAll);
    EXPECT_EQ(Loaded.CustomFiles, m_Report.CustomFiles);
    EXPECT_EQ(Loaded.CustomInfos, m_Report.CustomInfos);
}

TEST_F(CrashReporterSave, NeedsAFileName) {
    EXPECT_EQ(m_Report.Save(""), 0);
    EXPECT_TRUE(TiXmlBase::IsWhiteSpaceCondensed());
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(!strFileName.empty()) in CrashReporter::Save"));
}

TEST_F(CrashReporterSave, SwitchesCondensingOffEvenWhenItThenFails) {
    EXPECT_TRUE(TiXmlBase::IsWhiteSpaceCondensed());
    EXPECT_EQ(m_Report.Save(m_strFile + "\\nowhere\\report.xml"), 0);
    EXPECT_FALSE(TiXmlBase::IsWhiteSpaceCondensed());
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Save"));
}

TEST_F(CrashReporterSave, FailsOverAFolderOrAFileThatIsHeldOpenElsewhere) {
    EXPECT_EQ(m_Report.Save("."), 0);
    Write("old");
    const HANDLE hFile =
        CreateFileA(m_strFile.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(hFile, INVALID_HANDLE_VALUE);
    EXPECT_EQ(m_Report.Save(m_strFile), 0);
    CloseHandle(hFile);
    EXPECT_EQ(Bytes(), "old");
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Save",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Save"));
}

TEST_F(CrashReporterSave, LeavesTheFileClosed) {
    EXPECT_EQ(m_Report.Save(m_strFile), 1);
    EXPECT_TRUE(DeleteFileA(m_strFile.c_str()));
}

TEST_F(CrashReporterSave, FailsWhenTheDiskIsFull) {
    // Wine shows the host's device that takes no byte. The small report fails on its last write only.
    const char szFull[] = "\\\\?\\unix\\dev\\full";
    const HANDLE hFull = CreateFileA(szFull, GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    if (hFull == INVALID_HANDLE_VALUE) {
        GTEST_SKIP() << "needs a device that is always full";
    }
    CloseHandle(hFull);
    EXPECT_EQ(m_Report.Save(szFull), 0);
    m_Report.CustomInfos.assign(1000, std::string(100, 'x'));
    EXPECT_EQ(m_Report.Save(szFull), 0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Save",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Save"));
}

TEST_F(CrashReporterSave, LeavesTheDocumentAsItIs) {
    m_Report.CustomInfos = {"a"};
    EXPECT_EQ(m_Report.Save(m_strFile), 1);
    EXPECT_EQ(m_Report.Save(m_strFile), 1);
    EXPECT_THAT(m_Report.CustomInfos, ElementsAre("a"));
}

}  // namespace
}  // namespace crashvane
