#include "driver/SystemLibrary.h"

namespace crashvane {

LibraryHandle LoadSystemLibrary(const wchar_t* pszName) {
    return LibraryHandle(LoadLibraryExW(pszName, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
}

}  // namespace crashvane
