#include "ui/LinkFont.h"

#include <gtest/gtest.h>

#include "util/Handles.h"

namespace crashvane::test {
namespace {

TEST(LinkFontTest, IsBoldAndChineseUnderEveryCodePage) {
    const GdiObject<HFONT> hFont(CreateLinkFont());
    LOGFONTW Font = {};
    ASSERT_NE(GetObjectW(hFont.Get(), sizeof(Font), &Font), 0);
    EXPECT_STREQ(Font.lfFaceName, L"\u5B8B\u4F53");
    EXPECT_EQ(Font.lfWeight, 700);
    EXPECT_EQ(Font.lfCharSet, 136);
    EXPECT_EQ(Font.lfOutPrecision, 2);
    EXPECT_EQ(Font.lfClipPrecision, 1);
    EXPECT_EQ(Font.lfQuality, 0);
    EXPECT_EQ(Font.lfPitchAndFamily, 48);
    EXPECT_EQ(Font.lfItalic, 0);
    EXPECT_EQ(Font.lfUnderline, 0);
    EXPECT_EQ(Font.lfStrikeOut, 0);
    EXPECT_EQ(Font.lfEscapement, 0);
    EXPECT_EQ(Font.lfOrientation, 0);
}

TEST(LinkFontTest, GrowsWithTheScreen) {
    const HDC hScreen = GetDC(nullptr);
    const int nDots = GetDeviceCaps(hScreen, LOGPIXELSY);
    ReleaseDC(nullptr, hScreen);
    const GdiObject<HFONT> hFont(CreateLinkFont());
    LOGFONTW Font = {};
    ASSERT_NE(GetObjectW(hFont.Get(), sizeof(Font), &Font), 0);
    EXPECT_EQ(Font.lfHeight, (14 * nDots + 48) / 96);
    EXPECT_EQ(Font.lfWidth, (8 * nDots + 48) / 96);
}

}  // namespace
}  // namespace crashvane::test
