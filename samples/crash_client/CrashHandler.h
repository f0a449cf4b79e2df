// Turns a crash of this process into a dump, a report and a started Crashvane. The part that a game copies.
//
// Everything that can be done early is done by InstallCrashHandler. At the crash a thread that was made for it does
// the rest: the crashed thread may have no stack left, and others may hold the heap's lock. It works with memory that
// was set aside.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace sample {

struct CrashSettings {
    std::string strFolder;                 // absolute, must exist: dump and report go here
    std::string strSender;                 // path of Crashvane.exe
    std::string strOptions;                // the sender's options besides -f, such as "-p MYGAME -a -m -d"
    std::string strProject;                // written into the report; the sender replaces it by its collector's key
    std::vector<std::string> CustomFiles;  // go into the archive: logs, settings
    std::vector<std::string> CustomInfos;  // lines about the game's state
    bool bWait = false;  // for tests: wait for the sender and print its exit code. A game does not wait.
};

// Call it first thing in main, once. False: the process has no handler (no memory, no thread).
bool InstallCrashHandler(const CrashSettings& Settings);

}  // namespace sample
