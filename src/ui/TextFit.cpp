#include "ui/TextFit.h"

#include <algorithm>
#include <string>

namespace crashvane {
namespace {

constexpr LONG GapInDialogUnits = 2;

bool AreInLine(const RECT& One, const RECT& Other) {
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

int HeightOfText(HWND hControl, int nWidth) {
    std::wstring strText(static_cast<std::size_t>(GetWindowTextLengthW(hControl)) + 1, L'\0');
    strText.resize(
        static_cast<std::size_t>(GetWindowTextW(hControl, strText.data(), static_cast<int>(strText.size()))));
    const HDC hContext = GetDC(hControl);
    const HGDIOBJ hPrevious = SelectObject(hContext, reinterpret_cast<HFONT>(SendMessageW(hControl, WM_GETFONT, 0, 0)));
    RECT Needed = {0, 0, nWidth, 0};
    DrawTextW(hContext, strText.c_str(), static_cast<int>(strText.size()), &Needed, DT_CALCRECT | DT_WORDBREAK);
    SelectObject(hContext, hPrevious);
    ReleaseDC(hControl, hContext);
    return Needed.bottom;
}

}  // namespace

RECT GrowIntoFreeSpace(const RECT& Place, int nHeight, int nGap, const RECT& Bounds, const std::vector<RECT>& Others) {
    LONG nTop = Bounds.top;
    LONG nBottom = Bounds.bottom;
    for (const RECT& Other : Others) {
        if (!AreInLine(Place, Other)) {
            continue;
        }
        if (Other.bottom <= Place.top) {
            nTop = std::max(nTop, Other.bottom);
        } else if (Other.top >= Place.bottom) {
            nBottom = std::min(nBottom, Other.top);
        }
    }
    const LONG nGrown = std::clamp<LONG>(nHeight, Place.bottom - Place.top, nBottom - nTop);
    const LONG nKept = std::min<LONG>(nGap, (nBottom - nTop - nGrown) / 2);
    RECT Result = Place;
    Result.top = std::clamp(Place.bottom - nGrown, nTop + nKept, nBottom - nKept - nGrown);
    Result.bottom = Result.top + nGrown;
    return Result;
}

void FitText(HWND hDialog, HWND hControl) {
    const RECT Place = PlaceIn(hDialog, hControl);
    const int nHeight = HeightOfText(hControl, Place.right - Place.left);
    if (nHeight <= Place.bottom - Place.top) {
        return;
    }
    RECT Bounds = {};
    RECT Gap = {0, 0, 0, GapInDialogUnits};
    GetClientRect(hDialog, &Bounds);
    MapDialogRect(hDialog, &Gap);
    const RECT Grown = GrowIntoFreeSpace(Place, nHeight, Gap.bottom, Bounds, PlacesOfOthers(hDialog, hControl));
    SetWindowPos(hControl, nullptr, Grown.left, Grown.top, Grown.right - Grown.left, Grown.bottom - Grown.top,
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

}  // namespace crashvane
