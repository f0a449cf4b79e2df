#include "ui/Banner.h"

#include "ui/Stretch.h"
#include "util/Handles.h"

namespace crashvane {
namespace {

constexpr int BytesOfPixel = 3;

BITMAPINFO InfoOf(int nWidth, int nHeight) {
    BITMAPINFO Info = {};
    Info.bmiHeader.biSize = sizeof(Info.bmiHeader);
    Info.bmiHeader.biWidth = nWidth;
    Info.bmiHeader.biHeight = nHeight;
    Info.bmiHeader.biPlanes = 1;
    // No alpha: a static control copies a bitmap that may have some, and nobody would own the copy.
    Info.bmiHeader.biBitCount = 8 * BytesOfPixel;
    Info.bmiHeader.biCompression = BI_RGB;
    return Info;
}

bool ReadPixels(HBITMAP hBitMap, Image& Pixels) {
    BITMAP Drawn = {};
    if (GetObjectW(hBitMap, sizeof(Drawn), &Drawn) == 0) {
        return false;
    }
    Pixels = Image(Drawn.bmWidth, Drawn.bmHeight);
    BITMAPINFO Info = InfoOf(Drawn.bmWidth, Drawn.bmHeight);
    const HDC hScreen = GetDC(nullptr);
    const int nLines =
        GetDIBits(hScreen, hBitMap, 0, static_cast<UINT>(Drawn.bmHeight), Pixels.Bytes.data(), &Info, DIB_RGB_COLORS);
    ReleaseDC(nullptr, hScreen);
    return nLines == Drawn.bmHeight;
}

HBITMAP CreateBitMap(const Image& Pixels) {
    const BITMAPINFO Info = InfoOf(Pixels.nWidth, Pixels.nHeight);
    void* pBits = nullptr;
    const HBITMAP hBitMap = CreateDIBSection(nullptr, &Info, DIB_RGB_COLORS, &pBits, nullptr, 0);
    if (hBitMap != nullptr) {
        CopyMemory(pBits, Pixels.Bytes.data(), Pixels.Bytes.size());
    }
    return hBitMap;
}

}  // namespace

HBITMAP LoadBanner(HINSTANCE hInstance, int nImageId, HWND hPlace) {
    RECT Place = {};
    Image Drawn;
    GdiObject<HBITMAP> hDrawn(static_cast<HBITMAP>(
        LoadImageW(hInstance, MAKEINTRESOURCEW(static_cast<WORD>(nImageId)), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    if (!hDrawn) {
        return nullptr;
    }
    const bool bKnown = GetClientRect(hPlace, &Place) && Place.right > 0 && Place.bottom > 0;
    if (!bKnown || !ReadPixels(hDrawn.Get(), Drawn)) {
        return hDrawn.Release();
    }
    return CreateBitMap(Stretch(Drawn, Place.right, Place.bottom));
}

}  // namespace crashvane
