#include "driver/DelayLoad.h"

#include <windows.h>

#include <delayimp.h>

namespace crashvane {

namespace {

FARPROC AsAnswer(HMODULE hLibrary) {
    return reinterpret_cast<FARPROC>(reinterpret_cast<void*>(hLibrary));
}

// Null lets the default search go on.
FARPROC WINAPI OnLoad(unsigned uNotification, DelayLoadInfo* pInfo) {
    if (uNotification != dliNotePreLoadLibrary) {
        return nullptr;
    }
    return AsAnswer(LoadLibraryExA(pInfo->szDll, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32));
}

// Takes the place of every function that is not there; whatever parameters it is called with, it looks at none.
INT_PTR WINAPI FailingCall() {
    SetLastError(ERROR_MOD_NOT_FOUND);
    return 0;
}

// Without an answer the caller would be ended by an exception of the system's own kind. So the search goes on in this
// program, which has no such function either, and what is found missing then is answered by the call that fails.
FARPROC WINAPI OnFailure(unsigned uNotification, DelayLoadInfo*) {
    if (uNotification == dliFailLoadLib) {
        return AsAnswer(GetModuleHandleW(nullptr));
    }
    return uNotification == dliFailGetProc ? reinterpret_cast<FARPROC>(FailingCall) : nullptr;
}

}  // namespace

void GuardDelayedCalls() {
    __pfnDliNotifyHook2 = OnLoad;
    __pfnDliFailureHook2 = OnFailure;
}

}  // namespace crashvane
