#include "ui/TextFit.h"

#include <algorithm>
#include <string>

namespace crashvane {
namespace {

bool AreBeside(const RECT& One, const RECT& Other) {
    return One.left < Other.right && Other.left < One.right;
}

RECT PlaceIn(HWND hDialog, HWND hControl) {
    RECT Place = {};
    GetWindowRect(hControl, &Place);
    MapWindowPoints(nullptr, hDialog, reinterpret_cast<POINT*>(&Place), 2);
    return Place;
}

std::vector<RECT> PlacesOfOthers(HWND hDialog, HWND hControl) {
    std::vector<RECT> Places;
    for (HWND hOther = GetWindow(hDialog, GW_CHILD); hOther != nullptr; hOther = GetWindow(hOther, GW_HWNDNEXT)) {
        if (hOther != hControl) {
            Places.push_back(PlaceIn(hDialog, hOther));
        }
    }
    return Places;
}

int HeightOfText(HWND hControl, HFONT hFont, int nWidth) {
    std::wstring strText(static_cast<std::size_t>(GetWindowTextLengthW(hControl)) + 1, L'\0');
    strText.resize(static_cast<std::size_t>(
        GetWindowTextW(hControl, strText.data(), static_cast<int>(strText.size()))));
    const HDC hContext = GetDC(hControl);
    const HGDIOBJ hPrevious = SelectObject(hContext, hFont);
    RECT Needed = {0, 0, nWidth, 0};
    DrawTextW(hContext, strText.c_str(), static_cast<int>(strText.size()), &Needed,
              DT_CALCRECT | DT_WORDBREAK | DT_EXPANDTABS);
    SelectObject(hContext, hPrevious);
    ReleaseDC(hControl, hContext);
    return Needed.bottom;
}

}  // namespace

RECT GrowIntoFreeSpace(const RECT& Place, int nHeight, const RECT& Bounds, const std::vector<RECT>& Others) {
    LONG nTop = Bounds.top;
    LONG nBottom = Bounds.bottom;
    for (const RECT& Other : Others) {
        if (!AreBeside(Place, Other)) {
            continue;
        }
        if (Other.bottom <= Place.top) {
            nTop = std::max(nTop, Other.bottom);
        } else if (Other.top >= Place.bottom) {
            nBottom = std::min(nBottom, Other.top);
        }
    }
    const LONG nGrown = std::clamp<LONG>(nHeight, Place.bottom - Place.top, nBottom - nTop);
    const LONG nWished = (Place.top + Place.bottom - nGrown) / 2;
    RECT Result = Place;
    Result.top = std::clamp(nWished, nTop, nBottom - nGrown);
    Result.bottom = Result.top + nGrown;
    return Result;
}

void FitText(HWND hDialog, HWND hControl, HFONT hFont) {
    const RECT Place = PlaceIn(hDialog, hControl);
    const HFONT hOwn = reinterpret_cast<HFONT>(SendMessageW(hControl, WM_GETFONT, 0, 0));
    const int nHeight = HeightOfText(hControl, hFont != nullptr ? hFont : hOwn, Place.right - Place.left);
    if (nHeight <= Place.bottom - Place.top) {
        return;
    }
    RECT Bounds = {};
    GetClientRect(hDialog, &Bounds);
    const RECT Grown = GrowIntoFreeSpace(Place, nHeight, Bounds, PlacesOfOthers(hDialog, hControl));
    SetWindowPos(hControl, nullptr, Grown.left, Grown.top, Grown.right - Grown.left, Grown.bottom - Grown.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace crashvane
