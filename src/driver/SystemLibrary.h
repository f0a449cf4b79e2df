// Libraries of the system that the program asks for by name while it runs, so that none is bound while it is loaded:
// what lies beside the program under such a name must never be taken for the system's.
#pragma once

#include "util/Handles.h"

namespace crashvane {

// Out of the system's folder alone; empty when it is not there.
LibraryHandle LoadSystemLibrary(const wchar_t* pszName);

// A function of a loaded library by name; null when the library is null or has no such function.
template <typename Function>
Function FunctionOf(HMODULE hLibrary, const char* pszName) {
    return hLibrary == nullptr ? nullptr
                               : reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(hLibrary, pszName)));
}

}  // namespace crashvane
