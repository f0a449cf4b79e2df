#include "ui/Foreground.h"

namespace crashvane {
namespace {

constexpr UINT OrderOnly = SWP_NOMOVE | SWP_NOSIZE;

BOOL CALLBACK RaiseIfOwned(HWND hWindow, LPARAM lParam) {
    DWORD uProcessId = 0;
    GetWindowThreadProcessId(hWindow, &uProcessId);
    if (uProcessId != static_cast<DWORD>(lParam)) {
        return TRUE;
    }
    SetWindowPos(hWindow, HWND_TOP, 0, 0, 0, 0, OrderOnly);
    return FALSE;
}

}  // namespace

void RaiseWindowOf(DWORD uProcessId) {
    EnumWindows(RaiseIfOwned, static_cast<LPARAM>(uProcessId));
}

void ComeToFront(HWND hDialog) {
    SetWindowPos(hDialog, HWND_TOPMOST, 0, 0, 0, 0, OrderOnly);
    SetForegroundWindow(hDialog);
}

void StepBack(HWND hDialog) {
    const HWND hFront = GetForegroundWindow();
    SetWindowPos(hDialog, HWND_NOTOPMOST, 0, 0, 0, 0, OrderOnly | SWP_NOACTIVATE);
    // Leaving the topmost windows puts a window above all others, also above the one that is being activated.
    if (hFront != nullptr && hFront != hDialog) {
        SetWindowPos(hDialog, hFront, 0, 0, 0, 0, OrderOnly | SWP_NOACTIVATE);
    }
}

}  // namespace crashvane
