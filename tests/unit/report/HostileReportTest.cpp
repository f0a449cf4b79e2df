// What a crash may leave behind: torn, forged, enormous reports, and a machine without memory.
#include <chrono>
#include <random>
#include <string>

#include "AllocationFailure.h"
#include "ReportTest.h"

namespace crashvane {
namespace {

using testing::ElementsAre;

class HostileReport : public ReportTest {
  protected:
    static bool IsSame(const CrashReporter& One, const CrashReporter& Other) {
        return One.Project == Other.Project && One.Modules.size() == Other.Modules.size() &&
               One.CustomFiles == Other.CustomFiles && One.CustomInfos == Other.CustomInfos &&
               One.Exception.ExceptionDescription == Other.Exception.ExceptionDescription;
    }
};

std::string Repeated(const std::string& strText, int nTimes) {
    std::string strResult;
    for (int n = 0; n < nTimes; ++n) {
        strResult += strText;
    }
    return strResult;
}

TEST_F(HostileReport, FailsWhereverTheFileIsCut) {
    const std::string strText = SampleReport;
    const std::size_t uComplete = strText.rfind('>') + 1;
    for (std::size_t uLength = 0; uLength < strText.size(); ++uLength) {
        CrashReporter Report;
        Write(strText.substr(0, uLength));
        EXPECT_EQ(Report.Load(m_strFile), uLength >= uComplete ? 1 : 0) << uLength;
    }
}

TEST_F(HostileReport, SurvivesEveryFlippedByte) {
    const std::string strText = SampleReport;
    std::mt19937 Random(1);
    int nLoaded = 0;
    for (std::size_t uAt = 0; uAt < strText.size(); ++uAt) {
        for (const int nMask : {0x80, std::uniform_int_distribution<int>(1, 255)(Random)}) {
            std::string strFlipped = strText;
            strFlipped[uAt] = static_cast<char>(strFlipped[uAt] ^ nMask);
            CrashReporter Report;
            Write(strFlipped);
            nLoaded += Report.Load(m_strFile);
        }
    }
    // Most bytes are content, the others are markup.
    EXPECT_GT(nLoaded, 500);
    EXPECT_LT(nLoaded, static_cast<int>(strText.size()) * 2 - 500);
}

TEST_F(HostileReport, FailsForMarksAndWideText) {
    const std::string strText = SampleReport;
    std::string strWide;
    for (const char cByte : strText) {
        strWide += cByte;
        strWide += '\0';
    }
    EXPECT_EQ(LoadText("\xEF\xBB\xBF" + strText), 0);
    EXPECT_EQ(LoadText("\xFF\xFE" + strWide), 0);
    EXPECT_EQ(LoadText(strWide), 0);
    EXPECT_EQ(LoadText(std::string("\0\0\xFE\xFF", 4) + strText), 0);
}

TEST_F(HostileReport, EndsAtTheFirstZero) {
    const std::string strText = SampleReport;
    EXPECT_EQ(LoadText(Replaced(strText, "Access violation", std::string("Acc\0ess", 7))), 0);
    EXPECT_EQ(LoadText(strText + std::string("\0\0\0<", 4)), 1);
}

TEST_F(HostileReport, LoadsBesideUnterminatedRestsBehindTheRoot) {
    for (const char* pszRest : {"<!-- open", "<!DOCTYPE", "<?xml version=", "<", "rest", "</CrashReporter>"}) {
        CrashReporter Report;
        Write(std::string(SampleReport) + pszRest);
        EXPECT_EQ(Report.Load(m_strFile), 1) << pszRest;
    }
    EXPECT_EQ(LoadText(std::string("<!-- open ") + SampleReport), 0);
}

TEST_F(HostileReport, RefusesDepthThatWouldOverflowTheStack) {
    EXPECT_EQ(LoadText(Repeated("<a>", 1000000)), 0);
    EXPECT_EQ(LoadText(Replaced(SampleReport, "<Custom>", Repeated("<a>", 200) + Repeated("</a>", 200) + "<Custom>")),
              0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Load",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Load"));
}

TEST_F(HostileReport, RefusesAttributesThatWouldTakeMinutes) {
    std::string strAttributes;
    for (int n = 0; n < 200000; ++n) {
        strAttributes += " a" + std::to_string(n) + "=''";
    }
    const auto Begin = std::chrono::steady_clock::now();
    EXPECT_EQ(LoadText(Replaced(SampleReport, " Project=\"QRL\"", " Project=\"QRL\"" + strAttributes)), 0);
    EXPECT_LT(std::chrono::steady_clock::now() - Begin, std::chrono::seconds(10));
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Load"));
}

TEST_F(HostileReport, RefusesMoreThanSixtyFourMebibytes) {
    const std::string strText = SampleReport;
    EXPECT_EQ(LoadText(strText + std::string(64 * 1024 * 1024 - strText.size() + 1, ' ')), 0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(nRetCode) in CrashReporter::Load"));
    EXPECT_EQ(LoadText(strText + std::string(64 * 1024 * 1024 - strText.size(), ' ')), 1);
}

CrashReporter HugeReport(int nModules) {
    CrashReporter Report;
    Report.Exception.ExceptionDescription = std::string(3 * 1024 * 1024, 'x');
    for (int n = 0; n < nModules; ++n) {
        Report.Modules.push_back(
            {"C:\\Game\\bin\\module" + std::to_string(n) + ".dll", 0x7ff600000000, 4096, 5, "1", "2"});
    }
    Report.CustomFiles.assign(1500, "C:\\Game\\logs\\some.log");
    Report.CustomInfos.assign(1500, "some line");
    return Report;
}

TEST_F(HostileReport, KeepsEveryPartOfAHugeReport) {
    const CrashReporter Huge = HugeReport(20000);
    EXPECT_EQ(Huge.Save(m_strFile), 1);
    EXPECT_EQ(m_Report.Load(m_strFile), 1);
    EXPECT_TRUE(IsSame(m_Report, Huge));
    ASSERT_EQ(m_Report.Modules.size(), 20000u);
    EXPECT_EQ(m_Report.Modules[19999].FullPath, "C:\\Game\\bin\\module19999.dll");
}

TEST_F(HostileReport, TakesTimeInLineWithTheNumberOfModules) {
    const auto SecondsFor = [this](int nModules) {
        CrashReporter Report;
        Report.Modules.assign(static_cast<std::size_t>(nModules), Module());
        double dBest = 1e9;
        for (int nRound = 0; nRound < 3; ++nRound) {
            const auto Begin = std::chrono::steady_clock::now();
            CrashReporter Loaded;
            EXPECT_EQ(Report.Save(m_strFile), 1);
            EXPECT_EQ(Loaded.Load(m_strFile), 1);
            const std::chrono::duration<double> Spent = std::chrono::steady_clock::now() - Begin;
            dBest = (std::min)(dBest, Spent.count());
        }
        return dBest;
    };
    // Ten times the modules: about ten times as long. A quadratic step would make it a hundred.
    EXPECT_LT(SecondsFor(20000), 40 * SecondsFor(2000));
}

TEST_F(HostileReport, LosesNothingWhenItIsLoadedSavedAndLoadedAgain) {
    const std::string strText = SampleReport;
    std::mt19937 Random(2);
    int nCompared = 0;
    for (int nRound = 0; nRound < 1000; ++nRound) {
        std::string strFlipped = strText;
        for (int n = std::uniform_int_distribution<int>(1, 3)(Random); n > 0; --n) {
            strFlipped[std::uniform_int_distribution<std::size_t>(0, strText.size() - 1)(Random)] =
                static_cast<char>(std::uniform_int_distribution<int>(0, 255)(Random));
        }
        CrashReporter First;
        Write(strFlipped);
        if (First.Load(m_strFile) == 1) {
            CrashReporter Second;
            EXPECT_EQ(First.Save(m_strFile), 1);
            EXPECT_EQ(Second.Load(m_strFile), 1);
            const std::string strSaved = Bytes();
            EXPECT_EQ(Second.Save(m_strFile), 1);
            EXPECT_EQ(Bytes(), strSaved) << strFlipped;
            ++nCompared;
        }
    }
    EXPECT_GT(nCompared, 100);
}

TEST_F(HostileReport, LogsOneLineWhenMemoryRunsOutWhileLoading) {
    Write(SampleReport);
    long nAllocation = 0;
    for (bool bHappened = true; bHappened; ++nAllocation) {
        CrashReporter Report;
        const std::size_t uBefore = Checks().size();
        int nLoaded = 1;
        {
            AllocationFailure Failure(nAllocation);
            nLoaded = Report.Load(m_strFile);
            bHappened = Failure.Happened();
        }
        EXPECT_EQ(nLoaded, bHappened ? 0 : 1) << nAllocation;
        EXPECT_EQ(Checks().size() - uBefore, bHappened ? 1u : 0u) << nAllocation;
    }
    EXPECT_GT(nAllocation, 50);
    EXPECT_THAT(Checks(), testing::Each("ZTLOG_PROCESS_ERROR(memory) in CrashReporter::Load"));
}

TEST_F(HostileReport, LogsOneLineWhenMemoryRunsOutWhileSaving) {
    EXPECT_EQ(LoadText(SampleReport), 1);
    Write("the old file");
    long nAllocation = 0;
    for (bool bHappened = true; bHappened; ++nAllocation) {
        const std::size_t uBefore = Checks().size();
        int nSaved = 1;
        {
            AllocationFailure Failure(nAllocation);
            nSaved = m_Report.Save(m_strFile);
            bHappened = Failure.Happened();
        }
        EXPECT_EQ(nSaved, bHappened ? 0 : 1) << nAllocation;
        EXPECT_EQ(Bytes() == "the old file", bHappened) << nAllocation;
        EXPECT_EQ(Checks().size() - uBefore, bHappened ? 1u : 0u) << nAllocation;
    }
    EXPECT_GT(nAllocation, 50);
    EXPECT_THAT(Checks(), testing::Each("ZTLOG_PROCESS_ERROR(memory) in CrashReporter::Save"));
}

}  // namespace
}  // namespace crashvane
