#include "ui/SystemLibraries.h"

#include <commctrl.h>

namespace crashvane {

LibraryHandle OpenSystemLibrary(const wchar_t* pszName) {
    return LibraryHandle(LoadLibraryExW(pszName, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
}

LibraryHandle LoadCommonControls() {
    LibraryHandle hLibrary = OpenSystemLibrary(L"comctl32.dll");
    if (hLibrary) {
        using Initialise = BOOL(WINAPI*)(const INITCOMMONCONTROLSEX*);
        const auto pfnInitialise = reinterpret_cast<Initialise>(
            reinterpret_cast<void*>(GetProcAddress(hLibrary.Get(), "InitCommonControlsEx")));
        const INITCOMMONCONTROLSEX Wanted = {sizeof(Wanted), ICC_STANDARD_CLASSES};
        if (pfnInitialise != nullptr) {
            pfnInitialise(&Wanted);
        }
    }
    return hLibrary;
}

}  // namespace crashvane
