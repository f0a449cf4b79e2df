#include "CrashHandler.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>

#include "Report.h"

namespace sample {

namespace {

constexpr DWORD ABORTED = 0x40000015;         // STATUS_FATAL_APP_EXIT
constexpr DWORD NO_MEMORY_LEFT = 0xC0000017;  // STATUS_NO_MEMORY
constexpr SIZE_T SPARE_MEMORY = 4U << 20;
constexpr SIZE_T COMMAND_SIZE = 4096;
constexpr ULONG STACK_FOR_FILTER = 64 * 1024;

struct Handler {
    CrashSettings Settings;
    CrashPaths Paths = {};
    MachineFacts Machine = {};
    char szCommand[COMMAND_SIZE] = {};
    HANDLE hCrashed = nullptr;  // set by the crashed thread
    void* pSpare = nullptr;     // given back at the crash, for those system calls that need memory after all
    volatile LONG nEntered = 0;
    EXCEPTION_POINTERS* pException = nullptr;
    DWORD dwThread = 0;
    FILETIME Time = {};
};

Handler* g_pHandler = nullptr;

void StartSender(Handler& Crash) {
    STARTUPINFOA StartupInfo = {};
    PROCESS_INFORMATION Process = {};
    DWORD dwExitCode = 0;
    StartupInfo.cb = sizeof(StartupInfo);
    if (!CreateProcessA(Crash.Settings.strSender.c_str(), Crash.szCommand, nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                        &StartupInfo, &Process)) {
        std::printf("sender not started: error %lu\n", GetLastError());
        return;
    }
    // So that its dialog may come to the front: only the process that the player works with can hand that right on.
    AllowSetForegroundWindow(Process.dwProcessId);
    if (Crash.Settings.bWait) {
        WaitForSingleObject(Process.hProcess, INFINITE);
        GetExitCodeProcess(Process.hProcess, &dwExitCode);
        std::printf("sender ended with %lu\n", dwExitCode);
    }
    CloseHandle(Process.hThread);
    CloseHandle(Process.hProcess);
}

DWORD WINAPI CrashThread(void*) {
    Handler& Crash = *g_pHandler;
    WaitForSingleObject(Crash.hCrashed, INFINITE);
    VirtualFree(Crash.pSpare, 0, MEM_RELEASE);

    const CrashMoment Moment = {Crash.pException, Crash.dwThread, Crash.Time};
    if (!WriteDump(Crash.Paths.szDump, Moment)) {
        std::printf("no dump: error %lu\n", GetLastError());
    }
    if (WriteReport(Crash.Paths, Moment, Crash.Machine, Crash.Settings)) {
        std::printf("report %s\n", Crash.Paths.szReport);
        StartSender(Crash);
    } else {
        std::printf("no report in %s\n", Crash.Paths.szReport);
    }
    std::fflush(stdout);
    TerminateProcess(GetCurrentProcess(), Moment.pException->ExceptionRecord->ExceptionCode);
    return 0;
}

// The crashed thread waits for its end here; the first crash alone is reported. Sleeping takes less stack than waiting
// for an event does, and after a stack overflow there is hardly any.
[[noreturn]] void ReportAndEnd(EXCEPTION_POINTERS* pException) {
    Handler& Crash = *g_pHandler;
    if (InterlockedExchange(&Crash.nEntered, 1) == 0) {
        Crash.pException = pException;
        Crash.dwThread = GetCurrentThreadId();
        GetSystemTimeAsFileTime(&Crash.Time);
        SetEvent(Crash.hCrashed);
    }
    for (;;) {
        Sleep(INFINITE);
    }
}

LONG WINAPI OnException(EXCEPTION_POINTERS* pException) {
    ReportAndEnd(pException);
}

// A full stack is caught before the system looks for a handler: that search walks the stack and needs some itself,
// more than the guarantee below holds under Wine.
LONG WINAPI OnFirstChance(EXCEPTION_POINTERS* pException) {
    if (pException->ExceptionRecord->ExceptionCode == EXCEPTION_STACK_OVERFLOW) {
        ReportAndEnd(pException);
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

// Crashes that are no exceptions of the processor: a record is made up for them, with the place as it is.
[[noreturn]] void ReportHere(DWORD dwCode, void* pAddress) {
    CONTEXT Context = {};
    RtlCaptureContext(&Context);
    EXCEPTION_RECORD Record = {};
    Record.ExceptionCode = dwCode;
    Record.ExceptionFlags = EXCEPTION_NONCONTINUABLE;
    Record.ExceptionAddress = pAddress;
    EXCEPTION_POINTERS Pointers = {&Record, &Context};
    ReportAndEnd(&Pointers);
}

void OnAbort(int) {
    ReportHere(ABORTED, __builtin_return_address(0));
}

void OnTerminate() {
    ReportHere(ABORTED, __builtin_return_address(0));
}

void OnNoMemory() {
    ReportHere(NO_MEMORY_LEFT, __builtin_return_address(0));
}

}  // namespace

bool InstallCrashHandler(const CrashSettings& Settings) {
    g_pHandler = new Handler;
    Handler& Crash = *g_pHandler;
    Crash.Settings = Settings;
    PrepareReport();
    GatherMachineFacts(Crash.Machine);
    MakePaths(Crash.Paths, Settings.strFolder.c_str());
    const int nLength = std::snprintf(Crash.szCommand, sizeof(Crash.szCommand), "\"%s\" -f \"%s\" %s",
                                      Settings.strSender.c_str(), Crash.Paths.szReport, Settings.strOptions.c_str());
    Crash.pSpare = VirtualAlloc(nullptr, SPARE_MEMORY, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
    Crash.hCrashed = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    if (nLength < 0 || nLength >= static_cast<int>(COMMAND_SIZE) || Crash.pSpare == nullptr ||
        Crash.hCrashed == nullptr) {
        return false;
    }
    const HANDLE hThread = CreateThread(nullptr, 0, CrashThread, nullptr, 0, nullptr);
    if (hThread == nullptr) {
        return false;
    }
    CloseHandle(hThread);

    // Each thread that may overflow its stack needs this for itself.
    ULONG uStack = STACK_FOR_FILTER;
    SetThreadStackGuarantee(&uStack);
    AddVectoredExceptionHandler(1, OnFirstChance);
    SetUnhandledExceptionFilter(OnException);
    std::signal(SIGABRT, OnAbort);
    std::set_terminate(OnTerminate);
    std::set_new_handler(OnNoMemory);
    return true;
}

}  // namespace sample
