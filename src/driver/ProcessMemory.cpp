#include "driver/ProcessMemory.h"

#include <windows.h>

#include <psapi.h>
#include <tlhelp32.h>

#include "log/Check.h"
#include "util/Handles.h"

namespace crashvane {

namespace {

constexpr unsigned MEBIBYTE_SHIFT = 20;

void LogProcess(const PROCESSENTRY32& Entry) {
    PROCESS_MEMORY_COUNTERS Counters = {};
    Counters.cb = sizeof(Counters);
    const ProcessHandle hProcess(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, Entry.th32ProcessID));
    // By its name in kernel32: psapi.dll may lie beside the program under somebody else's hand.
    if (!hProcess || !K32GetProcessMemoryInfo(hProcess.Get(), &Counters, sizeof(Counters))) {
        return;
    }
    Log::Write(LogInfo, "%u\t%s\t%u\t%u", static_cast<unsigned>(Entry.th32ProcessID), Entry.szExeFile,
               static_cast<unsigned>(Counters.WorkingSetSize >> MEBIBYTE_SHIFT),
               static_cast<unsigned>(Counters.PagefileUsage >> MEBIBYTE_SHIFT));
}

}  // namespace

void EnumProcessMemoryInfo() {
    FileHandle hSnapshot;
    HANDLE hProcessSnap = INVALID_HANDLE_VALUE;
    BOOL bRetCode = FALSE;
    PROCESSENTRY32 Entry = {};
    Entry.dwSize = sizeof(Entry);

    Log::Write(LogInfo, "-----Process memory info-----");
    Log::Write(LogInfo, "PID\tEXE\tWorkingSetSize(MB)\tPagefileUsage(MB)");

    hProcessSnap = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS | TH32CS_INHERIT, 0);
    ZTLOG_PROCESS_ERROR(hProcessSnap != INVALID_HANDLE_VALUE);
    hSnapshot.Reset(hProcessSnap);

    bRetCode = Process32First(hProcessSnap, &Entry);
    ZTLOG_PROCESS_ERROR(bRetCode);
    while (bRetCode) {
        LogProcess(Entry);
        bRetCode = Process32Next(hProcessSnap, &Entry);
    }

Exit0:
    hSnapshot.Reset();
    Log::Write(LogInfo, "-----End-----");
}

}  // namespace crashvane
