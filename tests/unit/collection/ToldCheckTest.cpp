#include "collection/ToldCheck.h"

#include <gtest/gtest.h>

#include "support/LogCapture.h"

namespace crashvane {
namespace {

int CheckNumber(const std::string& strFunction, int& nNumber, int& nLine) {
    int nResult = 0;
    nLine = __LINE__ + 1;
    ZTLOG_PROCESS_ERROR_IN(strFunction, nNumber++ > 0);
    nResult = 1;
Exit0:
    return nResult;
}

TEST(ToldCheck, SaysNothingOfAConditionThatHolds) {
    const LogCapture Log;
    int nNumber = 1;
    int nLine = 0;
    EXPECT_EQ(CheckNumber("SomeCollection::CollectVersion", nNumber, nLine), 1);
    EXPECT_TRUE(Log.Lines().empty());
}

TEST(ToldCheck, NamesConditionLineAndTheFunctionThatItWasTold) {
    const LogCapture Log;
    int nNumber = 0;
    int nLine = 0;
    EXPECT_EQ(CheckNumber("SomeCollection::CollectVersion", nNumber, nLine), 0);
    ASSERT_EQ(Log.Lines().size(), 1u);
    EXPECT_EQ(Log.Lines()[0], "ZTLOG_PROCESS_ERROR(nNumber++ > 0) at line " + std::to_string(nLine) +
                                  " in SomeCollection::CollectVersion");
    EXPECT_NE(Log.WholeLines()[0].find("<DEBUG:"), std::string::npos);
}

TEST(ToldCheck, EvaluatesItsConditionOnce) {
    const LogCapture Log;
    int nNumber = 0;
    int nLine = 0;
    CheckNumber("f", nNumber, nLine);
    EXPECT_EQ(nNumber, 1);
}

}  // namespace
}  // namespace crashvane
