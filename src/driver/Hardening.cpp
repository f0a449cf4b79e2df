#include "driver/Hardening.h"

#include <windows.h>

#include <cstdlib>
#include <exception>

#include "driver/DelayLoad.h"
#include "driver/SystemLibrary.h"

namespace crashvane {

namespace {

[[noreturn]] void EndQuietly() {
    TerminateProcess(GetCurrentProcess(), EXIT_FAILURE);
    std::abort();
}

LONG WINAPI EndAfterFault(EXCEPTION_POINTERS*) {
    EndQuietly();
}

}  // namespace

void HardenProcess() {
    // Looked up, since an old system without its updates does not have it and must still start the program.
    const auto pfnSetDefault =
        FunctionOf<BOOL(WINAPI*)(DWORD)>(GetModuleHandleW(L"kernel32.dll"), "SetDefaultDllDirectories");
    if (pfnSetDefault != nullptr) {
        pfnSetDefault(LOAD_LIBRARY_SEARCH_SYSTEM32);
    }
    SetDllDirectoryW(L"");
    GuardDelayedCalls();

    // The thread's mode and not the process's: the game that is started again must not inherit it.
    SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX, nullptr);
    SetUnhandledExceptionFilter(EndAfterFault);
    std::set_terminate(EndQuietly);
}

void RestoreLibrarySearch() {
    SetDllDirectoryW(nullptr);
}

}  // namespace crashvane
