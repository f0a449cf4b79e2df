#include "ReportTest.h"

namespace crashvane {
namespace {

using testing::ElementsAre;

// The children of "Exception" in the order in which they are saved.
const char Children[] =
    "<ExceptionModuleName>engine.dll</ExceptionModuleName>"
    "<ExceptionCode>0xc0000005</ExceptionCode>"
    "<ExceptionDescription>Access violation</ExceptionDescription>"
    "<ExceptionAddress>0X00007FF6A1B20000</ExceptionAddress>"
    "<DumpFileName>crash.dmp</DumpFileName>"
    "<DumpKey>ab12</DumpKey>"
    "<DumpGuid>guid</DumpGuid>"
    "<ExceptionTime>1567130000</ExceptionTime>"
    "<TimeToFailure>125</TimeToFailure>"
    "<ProcessName>Client.exe</ProcessName>"
    "<ProcessInstance>4</ProcessInstance>"
    "<ProcessMemUsed PagefileUsage=\"701\" WorkingSetSize=\"601\" />"
    "<ProcessMemPeak PagefileUsage=\"901\" WorkingSetSize=\"801\" />";

class ExceptionTest : public ReportTest {
  protected:
    int LoadChildren(const std::string& strChildren) {
        return m_Exception.LoadException(Parsed("<Exception>" + strChildren + "</Exception>").Parent());
    }
    int LoadWith(const std::string& strFrom, const std::string& strTo) {
        return LoadChildren(Replaced(Children, strFrom, strTo));
    }
    int LoadCode(const std::string& strText) {
        return LoadWith("<ExceptionCode>0xc0000005<", "<ExceptionCode>" + strText + "<");
    }
    int LoadAddress(const std::string& strText) { return LoadWith("0X00007FF6A1B20000", strText); }

    Exception m_Exception;
};

TEST_F(ExceptionTest, LoadsEveryField) {
    EXPECT_EQ(LoadChildren(Children), 1);
    EXPECT_EQ(m_Exception.ExceptionModuleName, "engine.dll");
    EXPECT_EQ(m_Exception.ExceptionCode, 3221225477u);
    EXPECT_EQ(m_Exception.ExceptionDescription, "Access violation");
    EXPECT_EQ(m_Exception.ExceptionAddress, 0x7ff6a1b20000u);
    EXPECT_EQ(m_Exception.DumpFileName, "crash.dmp");
    EXPECT_EQ(m_Exception.DumpKey, "ab12");
    EXPECT_EQ(m_Exception.DumpGuid, "guid");
    EXPECT_EQ(m_Exception.ExceptionTime, 1567130000);
    EXPECT_EQ(m_Exception.TimeToFailure, 125);
    EXPECT_EQ(m_Exception.ProcessName, "Client.exe");
    EXPECT_EQ(m_Exception.ProcessInstance, 4u);
    EXPECT_EQ(m_Exception.ProcessMemUsed.PagefileUsage, 701u);
    EXPECT_EQ(m_Exception.ProcessMemUsed.WorkingSetSize, 601u);
    EXPECT_EQ(m_Exception.ProcessMemPeak.PagefileUsage, 901u);
    EXPECT_EQ(m_Exception.ProcessMemPeak.WorkingSetSize, 801u);
    EXPECT_THAT(Checks(), ElementsAre());
}

TEST_F(ExceptionTest, SavesItsChildrenInTheOrderOfTheFile) {
    m_Exception.ExceptionModuleName = "engine.dll";
    m_Exception.ExceptionCode = 0xc0000005;
    m_Exception.ExceptionDescription = "Access violation";
    m_Exception.ExceptionAddress = 0x7ff6a1b20000;
    m_Exception.DumpFileName = "crash.dmp";
    m_Exception.DumpKey = "ab12";
    m_Exception.DumpGuid = "guid";
    m_Exception.ExceptionTime = 1567130000;
    m_Exception.TimeToFailure = 125;
    m_Exception.ProcessName = "Client.exe";
    m_Exception.ProcessInstance = 4;
    m_Exception.ProcessMemUsed.PagefileUsage = 701;
    m_Exception.ProcessMemUsed.WorkingSetSize = 601;
    m_Exception.ProcessMemPeak.PagefileUsage = 901;
    m_Exception.ProcessMemPeak.WorkingSetSize = 801;
    Saved Target;
    EXPECT_EQ(m_Exception.SaveException(Target.Parent()), 1);
    EXPECT_EQ(Target.Text(), "<Parent><Exception>" + std::string(Children) + "</Exception></Parent>");
}

TEST_F(ExceptionTest, SavesEveryFieldOfAnEmptyRecord) {
    Saved Target;
    EXPECT_EQ(m_Exception.SaveException(Target.Parent()), 1);
    EXPECT_EQ(Target.Text(),
              "<Parent><Exception><ExceptionModuleName></ExceptionModuleName><ExceptionCode>0x0</ExceptionCode>"
              "<ExceptionDescription></ExceptionDescription><ExceptionAddress>0X0000000000000000</ExceptionAddress>"
              "<DumpFileName></DumpFileName><DumpKey></DumpKey><DumpGuid></DumpGuid><ExceptionTime>0</ExceptionTime>"
              "<TimeToFailure>0</TimeToFailure><ProcessName></ProcessName><ProcessInstance>0</ProcessInstance>"
              "<ProcessMemUsed PagefileUsage=\"0\" WorkingSetSize=\"0\" />"
              "<ProcessMemPeak PagefileUsage=\"0\" WorkingSetSize=\"0\" /></Exception></Parent>");
}

TEST_F(ExceptionTest, SavesTheLargestAndSmallestNumbers) {
    m_Exception.ExceptionCode = 0xffffffff;
    m_Exception.ExceptionAddress = 0xfedcba9876543210;
    m_Exception.ExceptionTime = (std::numeric_limits<long long>::min)();
    m_Exception.TimeToFailure = (std::numeric_limits<long long>::max)();
    m_Exception.ProcessInstance = 0xffffffff;
    m_Exception.ProcessMemUsed.PagefileUsage = (std::numeric_limits<unsigned long long>::max)();
    Saved Target;
    EXPECT_EQ(m_Exception.SaveException(Target.Parent()), 1);
    const std::string strText = Target.Text();
    EXPECT_THAT(strText, testing::HasSubstr("<ExceptionCode>0xffffffff<"));
    EXPECT_THAT(strText, testing::HasSubstr("<ExceptionAddress>0XFEDCBA9876543210<"));
    EXPECT_THAT(strText, testing::HasSubstr("<ExceptionTime>-9223372036854775808<"));
    EXPECT_THAT(strText, testing::HasSubstr("<TimeToFailure>9223372036854775807<"));
    EXPECT_THAT(strText, testing::HasSubstr("<ProcessInstance>4294967295<"));
    EXPECT_THAT(strText, testing::HasSubstr("PagefileUsage=\"18446744073709551615\""));
}

TEST_F(ExceptionTest, FailsWithoutItsElement) {
    EXPECT_EQ(m_Exception.LoadException(Parsed("<Other />").Parent()), 0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(pElement) in Exception::LoadException"));
}

TEST_F(ExceptionTest, FailsWithoutAnyOneOfItsChildren) {
    for (const char* pszName :
         {"ExceptionModuleName", "ExceptionCode", "ExceptionDescription", "ExceptionAddress", "DumpFileName", "DumpKey",
          "DumpGuid", "ExceptionTime", "TimeToFailure", "ProcessName", "ProcessInstance"}) {
        const std::string strName = pszName;
        const std::string strOther = Replaced(Children, "<" + strName + ">", "<Other>");
        EXPECT_EQ(LoadChildren(Replaced(strOther, "</" + strName + ">", "</Other>")), 0) << strName;
    }
    EXPECT_THAT(Checks(), testing::AllOf(testing::SizeIs(11),
                                         testing::Each("ZTLOG_PROCESS_ERROR(nRetCode) in Exception::LoadException")));
}

TEST_F(ExceptionTest, KeepsWhatItReadBeforeTheFailureInTheOrderOfTheRecord) {
    m_Exception.DumpKey = "old";
    m_Exception.DumpGuid = "old";
    m_Exception.TimeToFailure = 7;
    m_Exception.ProcessName = "old";
    // The guid stands before the times in the file, and is read behind them.
    EXPECT_EQ(LoadWith("<TimeToFailure>125<", "<TimeToFailure><"), 0);
    EXPECT_EQ(m_Exception.DumpKey, "ab12");
    EXPECT_EQ(m_Exception.ExceptionTime, 1567130000);
    EXPECT_EQ(m_Exception.TimeToFailure, 7);
    EXPECT_EQ(m_Exception.DumpGuid, "old");
    EXPECT_EQ(m_Exception.ProcessName, "old");
}

TEST_F(ExceptionTest, KeepsTheCodeWhenItsTextLacksThePrefix) {
    m_Exception.ExceptionCode = 77;
    EXPECT_EQ(LoadCode("c0000005"), 1);
    EXPECT_EQ(m_Exception.ExceptionCode, 77u);
    EXPECT_THAT(Checks(), ElementsAre());
}

TEST_F(ExceptionTest, FailsWithEmptyNumbers) {
    EXPECT_EQ(LoadCode(""), 0);
    EXPECT_EQ(LoadWith("1567130000", ""), 0);
    EXPECT_EQ(LoadWith("<ProcessInstance>4<", "<ProcessInstance><"), 0);
    EXPECT_EQ(LoadAddress(""), 0);
    EXPECT_THAT(Checks(), testing::AllOf(testing::SizeIs(4),
                                         testing::Each("ZTLOG_PROCESS_ERROR(nRetCode) in Exception::LoadException")));
}

TEST_F(ExceptionTest, FailsWhenANumberEndsWithItsPrefix) {
    EXPECT_EQ(LoadCode("0"), 0);
    EXPECT_EQ(LoadCode("0x"), 0);
    EXPECT_EQ(LoadAddress("0X"), 0);
}

TEST_F(ExceptionTest, LoadsAnEmptyDescriptionAsEmpty) {
    m_Exception.ExceptionDescription = "old";
    EXPECT_EQ(LoadWith(">Access violation<", "><"), 1);
    EXPECT_EQ(m_Exception.ExceptionDescription, "");
}

TEST_F(ExceptionTest, KeepsTheAddressWhenItsPrefixIsInLowerCase) {
    m_Exception.ExceptionAddress = 77;
    EXPECT_EQ(LoadAddress("0x00007FF6A1B20000"), 1);
    EXPECT_EQ(m_Exception.ExceptionAddress, 77u);
}

TEST_F(ExceptionTest, ReadsAddressesOfAnyLengthAndCase) {
    EXPECT_EQ(LoadAddress("0X7ff6"), 1);
    EXPECT_EQ(m_Exception.ExceptionAddress, 0x7ff6u);
    EXPECT_EQ(LoadAddress("0XFEDCBA9876543210"), 1);
    EXPECT_EQ(m_Exception.ExceptionAddress, 0xfedcba9876543210u);
}

TEST_F(ExceptionTest, ReadsCodesAsTheRuntimeScansThem) {
    struct {
        std::string strText;
        unsigned int uExpected;
    } const Cases[] = {
        {"0x0", 0},
        {"0xFFFFFFFF", 4294967295},
        {"0x1ffffffff", 4294967295},
        {"0x100000000", 0},
        {"0x-1", 4294967295},
        {"0x0x10", 16},
        {"0x10 and more", 16},
        {"0xzz", 77},
        {"-1", 77},
        {"abc", 77},
        {"0x" + std::string(10000, 'f'), 4294967295},
    };
    for (const auto& Case : Cases) {
        m_Exception.ExceptionCode = 77;
        EXPECT_EQ(LoadCode(Case.strText), 1) << Case.strText;
        EXPECT_EQ(m_Exception.ExceptionCode, Case.uExpected) << Case.strText;
    }
}

TEST_F(ExceptionTest, ReadsTimesAsTheRuntimeScansThem) {
    struct {
        std::string strText;
        long long llExpected;
    } const Cases[] = {
        {"-5", -5},
        {"+5", 5},
        {"9223372036854775807", 9223372036854775807},
        {"18446744073709551616", 0},
        {"18446744073709551621", 5},
        {"12abc", 12},
        {"0x10", 0},
        {"ff", 77},
        // All nines is one less than a multiple of 2^64.
        {std::string(10000, '9'), -1},
    };
    for (const auto& Case : Cases) {
        m_Exception.ExceptionTime = 77;
        EXPECT_EQ(LoadWith("1567130000", Case.strText), 1) << Case.strText;
        EXPECT_EQ(m_Exception.ExceptionTime, Case.llExpected) << Case.strText;
    }
}

TEST_F(ExceptionTest, ReadsTheInstanceAsTheRuntimeScansIt) {
    struct {
        std::string strText;
        unsigned int uExpected;
    } const Cases[] = {{"4294967295", 4294967295},
                       {"4294967297", 1},
                       {"-1", 4294967295},
                       {"x", 77},
                       {std::string(10000, '9'), 4294967295}};
    for (const auto& Case : Cases) {
        m_Exception.ProcessInstance = 77;
        EXPECT_EQ(LoadWith("<ProcessInstance>4<", "<ProcessInstance>" + Case.strText + "<"), 1) << Case.strText;
        EXPECT_EQ(m_Exception.ProcessInstance, Case.uExpected) << Case.strText;
    }
}

TEST_F(ExceptionTest, LogsTheMissingMemoryElementInnermostFirst) {
    EXPECT_EQ(LoadWith("<ProcessMemPeak ", "<Other "), 0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(pElement) in MemoryProcess::LoadMemory",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in Exception::LoadException"));
}

TEST_F(ExceptionTest, ReadsThePagefileUsageFirst) {
    m_Exception.ProcessMemUsed = {.WorkingSetSize = 1, .PagefileUsage = 2};
    EXPECT_EQ(LoadWith("WorkingSetSize=\"601\"", ""), 0);
    EXPECT_EQ(m_Exception.ProcessMemUsed.PagefileUsage, 701u);
    EXPECT_EQ(m_Exception.ProcessMemUsed.WorkingSetSize, 1u);

    m_Exception.ProcessMemUsed = {.WorkingSetSize = 1, .PagefileUsage = 2};
    EXPECT_EQ(LoadWith("PagefileUsage=\"701\"", ""), 0);
    EXPECT_EQ(m_Exception.ProcessMemUsed.PagefileUsage, 2u);
    EXPECT_EQ(m_Exception.ProcessMemUsed.WorkingSetSize, 1u);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(nRetCode) in MemoryProcess::LoadMemory",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in Exception::LoadException",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in MemoryProcess::LoadMemory",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in Exception::LoadException"));
}

}  // namespace
}  // namespace crashvane
