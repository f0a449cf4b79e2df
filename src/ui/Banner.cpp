#include "ui/Banner.h"

#include "util/Handles.h"

namespace crashvane {
namespace {

// A device context in memory with a bitmap selected into it.
class MemoryContext {
  public:
    explicit MemoryContext(HBITMAP hBitMap)
        : m_hContext(CreateCompatibleDC(nullptr)), m_hPrevious(SelectObject(m_hContext, hBitMap)) {}
    MemoryContext(const MemoryContext&) = delete;
    MemoryContext& operator=(const MemoryContext&) = delete;
    ~MemoryContext() {
        SelectObject(m_hContext, m_hPrevious);
        DeleteDC(m_hContext);
    }
    [[nodiscard]] HDC Get() const { return m_hContext; }

  private:
    HDC m_hContext;
    HGDIOBJ m_hPrevious;
};

HBITMAP CreateBitMap(int nWidth, int nHeight) {
    BITMAPINFO Info = {};
    Info.bmiHeader.biSize = sizeof(Info.bmiHeader);
    Info.bmiHeader.biWidth = nWidth;
    Info.bmiHeader.biHeight = nHeight;
    Info.bmiHeader.biPlanes = 1;
    Info.bmiHeader.biBitCount = 24;
    Info.bmiHeader.biCompression = BI_RGB;
    void* pBits = nullptr;
    return CreateDIBSection(nullptr, &Info, DIB_RGB_COLORS, &pBits, nullptr, 0);
}

}  // namespace

HBITMAP LoadBanner(HINSTANCE hInstance, int nImageId, HWND hPlace) {
    BITMAP Drawn = {};
    RECT Place = {};
    GdiObject<HBITMAP> hDrawn(static_cast<HBITMAP>(LoadImageW(
        hInstance, MAKEINTRESOURCEW(static_cast<WORD>(nImageId)), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
    if (!hDrawn || GetObjectW(hDrawn.Get(), sizeof(Drawn), &Drawn) == 0 || !GetClientRect(hPlace, &Place)) {
        return nullptr;
    }
    GdiObject<HBITMAP> hStretched(CreateBitMap(Place.right, Place.bottom));
    if (!hStretched) {
        return hDrawn.Release();
    }
    const MemoryContext From(hDrawn.Get());
    const MemoryContext To(hStretched.Get());
    SetStretchBltMode(To.Get(), HALFTONE);
    SetBrushOrgEx(To.Get(), 0, 0, nullptr);
    StretchBlt(To.Get(), 0, 0, Place.right, Place.bottom, From.Get(), 0, 0, Drawn.bmWidth, Drawn.bmHeight, SRCCOPY);
    return hStretched.Release();
}

}  // namespace crashvane
