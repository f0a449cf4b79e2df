#include "ui/LinkFont.h"

namespace crashvane {
namespace {

constexpr int DotsOfDesign = 96;

int ScreenDots() {
    const HDC hScreen = GetDC(nullptr);
    if (hScreen == nullptr) {
        return DotsOfDesign;
    }
    const int nDots = GetDeviceCaps(hScreen, LOGPIXELSY);
    ReleaseDC(nullptr, hScreen);
    return nDots;
}

}  // namespace

HFONT CreateLinkFont() {
    const int nDots = ScreenDots();
    // The wide name means this face under every code page; its GBK bytes would do so under one alone.
    return CreateFontW(MulDiv(14, nDots, DotsOfDesign), MulDiv(8, nDots, DotsOfDesign), 0, 0, FW_BOLD, FALSE, FALSE,
                       FALSE, CHINESEBIG5_CHARSET, OUT_CHARACTER_PRECIS, CLIP_CHARACTER_PRECIS, DEFAULT_QUALITY,
                       DEFAULT_PITCH | FF_MODERN, L"宋体");
}

}  // namespace crashvane
