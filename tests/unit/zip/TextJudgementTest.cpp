#include "zip/TextJudgement.h"

#include <gmock/gmock.h>

#include <string>

namespace crashvane {
namespace {

bool Judge(const std::string& strBytes) {
    TextJudgement Judgement;
    Judgement.Feed(reinterpret_cast<const unsigned char*>(strBytes.data()), strBytes.size());
    return Judgement.IsText();
}

TEST(TextJudgement, TakesNothingForText) {
    EXPECT_TRUE(Judge(""));
}

TEST(TextJudgement, AllowsAQuarterOfBinaryBytes) {
    EXPECT_TRUE(Judge(std::string(8, 'a') + std::string(2, '\x80')));
    EXPECT_FALSE(Judge(std::string(8, 'a') + std::string(3, '\x80')));
    EXPECT_FALSE(Judge(std::string(7, 'a') + std::string(2, '\x80')));
    EXPECT_TRUE(Judge(std::string(5, 'a') + std::string(1, '\x80')));
    EXPECT_FALSE(Judge(std::string(3, 'a') + std::string(1, '\x80')));
}

TEST(TextJudgement, DrawsTheLinesAtSevenAnd127) {
    EXPECT_FALSE(Judge(std::string(1, '\x00')));
    EXPECT_FALSE(Judge("\x06"));
    EXPECT_TRUE(Judge("\x07"));
    EXPECT_TRUE(Judge("\x1B"));
    EXPECT_TRUE(Judge("\x7F"));
    EXPECT_FALSE(Judge("\x80"));
    EXPECT_FALSE(Judge("\xFF"));
}

TEST(TextJudgement, LooksAtTheFirst16384BytesOnly) {
    EXPECT_TRUE(Judge(std::string(16384, 'a') + std::string(50000, '\0')));
    EXPECT_FALSE(Judge(std::string(16384, '\0') + std::string(500000, 'a')));
    // The last byte of the sample and the first one behind it.
    const std::string strJustText = std::string(3276, '\0') + std::string(13107, 'a');
    EXPECT_TRUE(Judge(strJustText + "a" + "\x80"));
    EXPECT_FALSE(Judge(strJustText + "\x80" + "a"));
}

TEST(TextJudgement, CountsAcrossPieces) {
    TextJudgement Judgement;
    const std::string strText(10000, 'a');
    const std::string strBinary(10000, '\0');
    Judgement.Feed(reinterpret_cast<const unsigned char*>(strText.data()), strText.size());
    EXPECT_TRUE(Judgement.IsText());
    Judgement.Feed(reinterpret_cast<const unsigned char*>(strBinary.data()), strBinary.size());
    EXPECT_FALSE(Judgement.IsText());  // 6384 of them are in the sample
    Judgement.Feed(reinterpret_cast<const unsigned char*>(strText.data()), strText.size());
    Judgement.Feed(reinterpret_cast<const unsigned char*>(strText.data()), strText.size());
    EXPECT_FALSE(Judgement.IsText());
}

}  // namespace
}  // namespace crashvane
