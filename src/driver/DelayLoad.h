// Libraries whose import libraries bind on the first call (cmake/DelayWinInet.cmake): where they come from, and what
// happens when one cannot be had.
#pragma once

namespace crashvane {

// From now on such a library is taken from the system's folder alone. When it cannot be loaded, or lacks a function,
// every call of it fails: it does nothing, returns 0, and the last error says that the module was not found.
void GuardDelayedCalls();

}  // namespace crashvane
