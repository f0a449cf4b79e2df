#include "ui/Stretch.h"

#include <gmock/gmock.h>

namespace crashvane::test {
namespace {

// A picture of grey pixels.
Image Grey(int nWidth, int nHeight, const std::vector<int>& Values) {
    Image Made(nWidth, nHeight);
    for (int nLine = 0; nLine < nHeight; ++nLine) {
        for (int nByte = 0; nByte < 3 * nWidth; ++nByte) {
            Made.Bytes[nLine * Made.LineSize() + nByte] = static_cast<std::uint8_t>(Values[nLine * nWidth + nByte / 3]);
        }
    }
    return Made;
}

std::vector<int> Values(const Image& Picture) {
    std::vector<int> Result;
    for (int nLine = 0; nLine < Picture.nHeight; ++nLine) {
        for (int nColumn = 0; nColumn < Picture.nWidth; ++nColumn) {
            Result.push_back(Picture.Bytes[nLine * Picture.LineSize() + nColumn * 3]);
        }
    }
    return Result;
}

TEST(StretchTest, TheSameSizeGivesTheSamePicture) {
    const Image From = Grey(3, 2, {0, 10, 255, 7, 8, 9});
    EXPECT_EQ(Stretch(From, 3, 2).Bytes, From.Bytes);
}

TEST(StretchTest, TwiceTheWidthMixesNeighbours) {
    EXPECT_THAT(Values(Stretch(Grey(2, 1, {0, 100}), 4, 1)), testing::ElementsAre(0, 25, 75, 100));
}

TEST(StretchTest, TwiceTheHeightMixesLines) {
    EXPECT_THAT(Values(Stretch(Grey(1, 2, {0, 100}), 1, 4)), testing::ElementsAre(0, 25, 75, 100));
}

TEST(StretchTest, OnePixelFillsEverything) {
    EXPECT_THAT(Values(Stretch(Grey(1, 1, {42}), 3, 2)), testing::ElementsAre(42, 42, 42, 42, 42, 42));
}

TEST(StretchTest, HalfTheSizeMixesWhatBecomesOne) {
    EXPECT_THAT(Values(Stretch(Grey(4, 1, {0, 100, 200, 100}), 2, 1)), testing::ElementsAre(50, 150));
}

TEST(StretchTest, ColoursKeepTheirOrder) {
    Image From(1, 1);
    From.Bytes = {1, 2, 3, 0};
    EXPECT_THAT(Stretch(From, 2, 1).Bytes, testing::ElementsAre(1, 2, 3, 1, 2, 3, 0, 0));
}

TEST(StretchTest, LinesAreFilledUpToFourBytes) {
    EXPECT_EQ(Image(1, 1).LineSize(), 4U);
    EXPECT_EQ(Image(4, 1).LineSize(), 12U);
    EXPECT_EQ(Image(5, 2).Bytes.size(), 32U);
}

}  // namespace
}  // namespace crashvane::test
