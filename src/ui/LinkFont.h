// The bold font of the fix link.
#pragma once

#include <windows.h>

namespace crashvane {

// 14 high and 8 wide at 96 dots an inch, growing with the screen's. Null when the system cannot make it.
HFONT CreateLinkFont();

}  // namespace crashvane
