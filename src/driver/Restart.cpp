#include "driver/Restart.h"

#include <windows.h>

#include "driver/Hardening.h"
#include "log/Log.h"
#include "util/Handles.h"
#include "util/Text.h"

namespace crashvane {

void RestartGame(const std::string& strProgram, const std::string& strCommandLine) {
    STARTUPINFOA StartupInfo = {};
    PROCESS_INFORMATION Process = {};
    std::string strWritable = strCommandLine;  // the call may change it

    RestoreLibrarySearch();
    GetStartupInfoA(&StartupInfo);
    if (!CreateProcessA(strProgram.c_str(), strWritable.data(), nullptr, nullptr, FALSE, NORMAL_PRIORITY_CLASS, nullptr,
                        nullptr, &StartupInfo, &Process)) {
        Log::Write(LogDebug, "Start process error! %s", LastErrorText().c_str());
        return;
    }
    const ProcessHandle hThread(Process.hThread);
    const ProcessHandle hProcess(Process.hProcess);
}

}  // namespace crashvane
