// Texts that are longer than their place get further lines in the free space around it.
#pragma once

#include <windows.h>

#include <vector>

namespace crashvane {

// A place grown to nHeight: up first and then down, as far as the others and the bounds leave space, and nGap away from
// them where there is enough of it; where there is less, the place takes what is there. Only others that lie above or
// below count. All in the same units.
RECT GrowIntoFreeSpace(const RECT& Place, int nHeight, int nGap, const RECT& Bounds, const std::vector<RECT>& Others);

// Grows a static control of the dialog when its text needs more lines than it has.
void FitText(HWND hDialog, HWND hControl);

}  // namespace crashvane
