#include "ui/Banner.h"

#include <gtest/gtest.h>

#include "ui/Resources.h"
#include "util/Handles.h"

namespace crashvane::test {
namespace {

constexpr int BannerIds[] = {130, 131, 132, 135, 136, 144, 146, 151, 153, 154, 156, 157, 158};

BOOL CALLBACK Count(HMODULE, const char*, char*, LONG_PTR lParam) {
    ++*reinterpret_cast<int*>(lParam);
    return TRUE;
}

// 299 by 47 dialog units of 6 by 13 pixels are 448.5 by 76.4 pixels.
TEST(BannerTest, EveryProductsBannerLoadsInTheSizeOfItsPlace) {
    for (const int nId : BannerIds) {
        const GdiObject<HBITMAP> hBitMap(static_cast<HBITMAP>(
            LoadImageW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(nId), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
        BITMAP Drawn = {};
        ASSERT_NE(GetObjectW(hBitMap.Get(), sizeof(Drawn), &Drawn), 0) << nId;
        EXPECT_EQ(Drawn.bmWidth, 449) << nId;
        EXPECT_EQ(Drawn.bmHeight, 76) << nId;
    }
}

TEST(BannerTest, TheProgramCarriesNoOtherBitmap) {
    int nCount = 0;
    EnumResourceNamesA(nullptr, RT_BITMAP, Count, reinterpret_cast<LONG_PTR>(&nCount));
    EXPECT_EQ(nCount, 13);
}

TEST(BannerTest, ANumberWithoutABitmapGivesNone) {
    EXPECT_EQ(LoadBanner(GetModuleHandleW(nullptr), 999, GetDesktopWindow()), nullptr);
}

}  // namespace
}  // namespace crashvane::test
