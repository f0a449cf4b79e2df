#include "net/AnswerRules.h"

#include <gtest/gtest.h>

namespace crashvane {
namespace {

TEST(AnswerRules, ReadTheStatusAsANumberInBaseTen) {
    EXPECT_EQ(ParseStatus(L"200"), 200);
    EXPECT_EQ(ParseStatus(L"404"), 404);
    EXPECT_EQ(ParseStatus(L"2000"), 2000);
    EXPECT_EQ(ParseStatus(L"020"), 20);
    EXPECT_EQ(ParseStatus(L"0xC8"), 0);
    EXPECT_EQ(ParseStatus(L"20x"), 20);
}

TEST(AnswerRules, ReadAStatusWithoutDigitsAsZero) {
    EXPECT_EQ(ParseStatus(L"abc"), 0);
    EXPECT_EQ(ParseStatus(L""), 0);
}

TEST(AnswerRules, ReadLengthsAsTheyWereAnnounced) {
    EXPECT_EQ(ParseLength(L"0"), 0);
    EXPECT_EQ(ParseLength(L"31457280"), 31457280);
    EXPECT_EQ(ParseLength(L" 5"), 5);
    EXPECT_EQ(ParseLength(L"-5"), -5);
    EXPECT_EQ(ParseLength(L"five"), 0);
    EXPECT_EQ(ParseLength(L"99999999999"), 2147483647);
    EXPECT_EQ(ParseLength(L"-99999999999"), -2147483647 - 1);
}

TEST(AnswerRules, SetAsideWhatASaneServerAnnounces) {
    EXPECT_EQ(BytesToReserve(0), 0u);
    EXPECT_EQ(BytesToReserve(1), 1u);
    EXPECT_EQ(BytesToReserve(31457280), 31457280u);
}

TEST(AnswerRules, SetNothingAsideForNegativeAndAbsurdLengths) {
    EXPECT_EQ(BytesToReserve(-1), 0u);
    EXPECT_EQ(BytesToReserve(-2147483647 - 1), 0u);
    EXPECT_EQ(BytesToReserve(2147483647), 0u);
    EXPECT_EQ(BytesToReserve(2000000000), 0u);
}

TEST(AnswerRules, HoldAnAnswerWholeWhenItsAnnouncedLengthIsMetExactly) {
    EXPECT_TRUE(IsWhole({true, 0}, 0));
    EXPECT_TRUE(IsWhole({true, 7}, 7));
    EXPECT_FALSE(IsWhole({true, 7}, 6));
    EXPECT_FALSE(IsWhole({true, 7}, 8));
}

TEST(AnswerRules, HoldNoAnswerWholeThatWasAnnouncedAsNegative) {
    EXPECT_FALSE(IsWhole({true, -1}, 0));
    EXPECT_FALSE(IsWhole({true, -1}, static_cast<std::size_t>(-1)));
}

TEST(AnswerRules, HoldAnAnswerWholeWhenNothingWasAnnounced) {
    EXPECT_TRUE(IsWhole({false, 0}, 0));
    EXPECT_TRUE(IsWhole({false, 0}, 12345));
}

}  // namespace
}  // namespace crashvane
