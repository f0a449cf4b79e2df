// Makes links of static controls by subclassing them.
#pragma once

#include <windows.h>

#include "ui/Registries.h"

namespace crashvane {

// From now on a press of the left button on the control calls the handler and goes no further; everything else goes
// to the control's own procedure. 0: no such control.
int MakeLink(HWND hControl, WinForm* pForm, LinkHandler pfnClick);

// Gives the form's links their own procedures back and forgets them.
void RestoreLinks(const WinForm* pForm);

}  // namespace crashvane
