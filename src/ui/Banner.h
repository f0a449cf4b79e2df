// The product's banner, drawn for 96 dots an inch and stretched to the place it has on this screen.
#pragma once

#include <windows.h>

namespace crashvane {

// The bitmap resource in the size of the control's client area; the caller owns it. Null when there is no such bitmap.
// Of the image id the low 16 bits count.
HBITMAP LoadBanner(HINSTANCE hInstance, int nImageId, HWND hPlace);

}  // namespace crashvane
