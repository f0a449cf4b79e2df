#include "log/Check.h"

#include <gmock/gmock.h>

#include "support/LogCapture.h"

namespace crashvane {

struct Checked {
    int m_nEvaluated = 0;
    int m_nErrorLine = 0;

    int Count(int nResult) {
        ++m_nEvaluated;
        return nResult;
    }

    int Error(int nRetCode) {
        int nResult = 0;

        m_nErrorLine = __LINE__ + 1;
        ZTLOG_PROCESS_ERROR(nRetCode);

        nResult = 1;
    Exit0:
        return nResult;
    }

    int ErrorOnce(int nRetCode) {
        int nResult = 0;

        ZTLOG_PROCESS_ERROR(Count(nRetCode));

        nResult = 1;
    Exit0:
        return nResult;
    }

    int GoesOn(int nRetCode) {
        ZTLOG_CHECK_ERROR(Count(nRetCode) == 1);
        return 7;
    }

    int Success(bool bDone) {
        int nResult = 0;

        ZTLOG_PROCESS_SUCCESS(bDone && Count(1));
        goto Exit0;

    Exit1:
        nResult = 1;
    Exit0:
        return nResult;
    }

    int Percent(const char* pszText) {
        ZTLOG_CHECK_ERROR(pszText == nullptr || *pszText != "%s%n"[0]);
        return 1;
    }
};

namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::StartsWith;

std::string OnlyLine(const LogCapture& Log) {
    const std::vector<std::string> Lines = Log.Lines();
    return Lines.size() == 1 ? Lines[0] : "lines: " + std::to_string(Lines.size());
}

TEST(ProcessError, NamesConditionLineAndFunctionAndFails) {
    LogCapture Log;
    Checked Object;
    EXPECT_EQ(Object.Error(0), 0);
    EXPECT_EQ(OnlyLine(Log),
              "ZTLOG_PROCESS_ERROR(nRetCode) at line " + std::to_string(Object.m_nErrorLine) + " in Checked::Error");
}

TEST(ProcessError, SaysNothingWhenTheConditionHolds) {
    LogCapture Log;
    EXPECT_EQ(Checked().Error(1), 1);
    EXPECT_THAT(Log.Lines(), IsEmpty());
}

TEST(ProcessError, EvaluatesItsConditionOnce) {
    LogCapture Log;
    Checked Object;
    Object.ErrorOnce(0);
    Object.ErrorOnce(1);
    EXPECT_EQ(Object.m_nEvaluated, 2);
}

TEST(CheckError, LogsAndGoesOn) {
    LogCapture Log;
    Checked Object;
    EXPECT_EQ(Object.GoesOn(0), 7);
    EXPECT_THAT(OnlyLine(Log), StartsWith("ZTLOG_CHECK_ERROR(Count(nRetCode) == 1) at line "));
    EXPECT_THAT(OnlyLine(Log), EndsWith(" in Checked::GoesOn"));
    EXPECT_EQ(Object.m_nEvaluated, 1);
}

TEST(ProcessSuccess, LogsAndLeavesWithSuccess) {
    LogCapture Log;
    Checked Object;
    EXPECT_EQ(Object.Success(true), 1);
    EXPECT_THAT(OnlyLine(Log), MatchesRegex("ZTLOG_PROCESS_SUCCESS\\(bDone && Count\\(1\\)\\) at line \\d+ in "
                                            "Checked::Success"));
    EXPECT_EQ(Object.m_nEvaluated, 1);
}

TEST(ProcessSuccess, GoesOnSilentlyWhenTheConditionIsFalse) {
    LogCapture Log;
    EXPECT_EQ(Checked().Success(false), 0);
    EXPECT_THAT(Log.Lines(), IsEmpty());
}

TEST(CheckError, TakesNoConditionForAFormat) {
    LogCapture Log;
    Checked().Percent("%");
    EXPECT_THAT(OnlyLine(Log), StartsWith("ZTLOG_CHECK_ERROR(pszText == nullptr || *pszText != \"%s%n\"[0]) at line "));
}

TEST(CheckLines, AreTaggedDebug) {
    LogCapture Log;
    Checked().GoesOn(0);
    EXPECT_THAT(Log.WholeLines(), ElementsAre(testing::HasSubstr("<DEBUG:")));
}

}  // namespace
}  // namespace crashvane
