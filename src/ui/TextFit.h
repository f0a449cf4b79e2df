// Texts that are longer than their place get further lines in the free space around it.
#pragma once

#include <windows.h>

#include <vector>

namespace crashvane {

// A place grown to nHeight, up and down alike as far as the others and the bounds leave space; where they leave less,
// it takes what is there. Only others beside which it would come to lie count. All in the same units.
RECT GrowIntoFreeSpace(const RECT& Place, int nHeight, const RECT& Bounds, const std::vector<RECT>& Others);

// Grows a static control of the dialog when its text, drawn with the font (null: the control's own), needs more
// lines than the control has.
void FitText(HWND hDialog, HWND hControl, HFONT hFont);

}  // namespace crashvane
