// Which window belongs to which form: the two registries through which window procedures find their objects.
//
// Both are made on first use and empty whenever no dialog is up. Main thread only.
#pragma once

#include <windows.h>

#include <map>

namespace crashvane {

class WinForm;

// What a click on a link does.
using LinkHandler = void (*)(WinForm& Form, HWND hDialog);

struct LinkEntry {
    WinForm* pForm = nullptr;
    LinkHandler pfnClick = nullptr;
    WNDPROC pfnPrevious = nullptr;  // the control's own procedure
};

std::map<HWND, WinForm*>& FormRegistry();
std::map<HWND, LinkEntry>& LinkRegistry();

}  // namespace crashvane
