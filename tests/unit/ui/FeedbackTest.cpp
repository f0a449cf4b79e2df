#include "ui/Feedback.h"

#include <gtest/gtest.h>

namespace crashvane::test {
namespace {

constexpr UINT Gbk = 936;
constexpr UINT Western = 1252;

TEST(FeedbackTest, ATextThatFitsStaysWhole) {
    EXPECT_EQ(CutBetweenCharacters("abc", 3, Western), "abc");
    EXPECT_EQ(CutBetweenCharacters("", 3, Western), "");
}

TEST(FeedbackTest, ALongTextIsCutAtTheLimit) {
    EXPECT_EQ(CutBetweenCharacters("abcd", 3, Western), "abc");
}

TEST(FeedbackTest, ADoubleByteCharacterIsNotCutInHalf) {
    EXPECT_EQ(CutBetweenCharacters("a\xB4\xED\xCE\xF3", 4, Gbk), "a\xB4\xED");
    EXPECT_EQ(CutBetweenCharacters("a\xB4\xED\xCE\xF3", 5, Gbk), "a\xB4\xED\xCE\xF3");
}

TEST(FeedbackTest, TheSameBytesAreCharactersOfTheirOwnInASingleByteCodePage) {
    EXPECT_EQ(CutBetweenCharacters("a\xB4\xED\xCE\xF3", 4, Western), "a\xB4\xED\xCE");
}

TEST(FeedbackTest, ALimitOfNothingGivesNothing) {
    EXPECT_EQ(CutBetweenCharacters("\xB4\xED", 0, Gbk), "");
    EXPECT_EQ(CutBetweenCharacters("\xB4\xED", 1, Gbk), "");
}

TEST(FeedbackTest, AMissingControlGivesNoText) {
    EXPECT_EQ(FeedbackOf(nullptr), "");
}

}  // namespace
}  // namespace crashvane::test
