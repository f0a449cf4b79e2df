// System libraries that are loaded only when a window needs them, so that a run without one does not pay for them.
#pragma once

#include "util/Handles.h"

namespace crashvane {

// A library of the system's own folder, never one that lies beside the program. Invalid when it is missing.
LibraryHandle OpenSystemLibrary(const wchar_t* pszName);

// The themed controls, version 6 by the program's manifest. Without them the controls look plain. Loaded before the
// dialog and kept until it has ended.
LibraryHandle LoadCommonControls();

}  // namespace crashvane
