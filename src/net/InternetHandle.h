// Owner of a handle of the system's HTTP library: session, connection or request.
#pragma once

#include <windows.h>

#include <wininet.h>

#include "util/Handles.h"

namespace crashvane {

struct InternetHandleTraits {
    using Type = HINTERNET;
    static HINTERNET Invalid() { return nullptr; }
    static void Close(HINTERNET hInternet) { InternetCloseHandle(hInternet); }
};

using InternetHandle = Owner<InternetHandleTraits>;

}  // namespace crashvane
