// A game client that does nothing but crash, to show how a game hands its crashes to Crashvane.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

#include "CrashHandler.h"
#include "Crashes.h"

namespace {

constexpr const char USAGE[] =
    "crash_client [-how access|stack|abort|memory|exception|none] [-sender Crashvane.exe] [-options TEXT]\n"
    "             [-project KEY] [-folder DIR] [-file PATH]... [-info TEXT]... [-wait]\n"
    "\n"
    "Crashes for real, writes a dump and a report, and starts the sender with -f REPORT and the options.\n"
    "  -how      access violation (default), stack overflow, abort, out of memory, uncaught exception, or no crash\n"
    "  -sender   default: Crashvane.exe beside this program\n"
    "  -options  the sender's options besides -f; default \"-d\"\n"
    "  -project  key in the report; default SAMPLE\n"
    "  -folder   where dump, report and log go; default: this program's folder\n"
    "  -file     a file to send along, -info a line to send along\n"
    "  -wait     wait for the sender and print its exit code\n";

struct Wishes {
    std::string strHow = "access";
    sample::CrashSettings Settings;
};

std::string FullPathOf(const std::string& strPath) {
    char szPath[MAX_PATH] = {};
    return _fullpath(szPath, strPath.c_str(), sizeof(szPath)) != nullptr ? szPath : strPath;
}

// False: an option is unknown or lacks its value.
bool ReadArguments(int nCount, char** pArguments, Wishes& Wanted) {
    for (int nAt = 1; nAt < nCount; ++nAt) {
        const std::string strName = pArguments[nAt];
        if (strName == "-wait") {
            Wanted.Settings.bWait = true;
            continue;
        }
        if (++nAt == nCount) {
            return false;
        }
        const char* const pszValue = pArguments[nAt];
        if (strName == "-how") {
            Wanted.strHow = pszValue;
        } else if (strName == "-sender") {
            Wanted.Settings.strSender = FullPathOf(pszValue);
        } else if (strName == "-options") {
            Wanted.Settings.strOptions = pszValue;
        } else if (strName == "-project") {
            Wanted.Settings.strProject = pszValue;
        } else if (strName == "-folder") {
            Wanted.Settings.strFolder = FullPathOf(pszValue);
        } else if (strName == "-file") {
            Wanted.Settings.CustomFiles.push_back(FullPathOf(pszValue));
        } else if (strName == "-info") {
            Wanted.Settings.CustomInfos.emplace_back(pszValue);
        } else {
            return false;
        }
    }
    return true;
}

void SetDefaults(sample::CrashSettings& Settings) {
    char szProgram[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, szProgram, sizeof(szProgram));
    std::string strFolder = szProgram;
    strFolder.erase(strFolder.rfind('\\'));
    Settings.strFolder = strFolder;
    Settings.strSender = strFolder + "\\Crashvane.exe";
    Settings.strOptions = "-d";
    Settings.strProject = "SAMPLE";
}

// The game's own log: opened and closed for each line, so that every line is on disk when the game crashes.
void Say(const std::string& strLog, const char* pszText) {
    std::FILE* const pFile = std::fopen(strLog.c_str(), "ab");
    if (pFile != nullptr) {
        std::fprintf(pFile, "%s\r\n", pszText);
        std::fclose(pFile);
    }
}

}  // namespace

int main(int argc, char** argv) {
    Wishes Wanted;
    SetDefaults(Wanted.Settings);
    if (!ReadArguments(argc, argv, Wanted)) {
        std::fputs(USAGE, stderr);
        return 2;
    }

    const std::string strLog = Wanted.Settings.strFolder + "\\client.log";
    Wanted.Settings.CustomFiles.push_back(strLog);
    Wanted.Settings.CustomInfos.push_back("how=" + Wanted.strHow);
    if (!sample::InstallCrashHandler(Wanted.Settings)) {
        std::fputs("crash_client: no crash handler\n", stderr);
        return 3;
    }
    Say(strLog, ("the game runs, how=" + Wanted.strHow).c_str());
    if (!sample::CrashAs(Wanted.strHow.c_str())) {
        std::fputs(USAGE, stderr);
        return 2;
    }
    return 0;
}
