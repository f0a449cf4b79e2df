// Stands in for the game that is started again: writes how it was started into the file that its command line names
// last.
#include <windows.h>

#include <cstdio>
#include <cstring>

int main() {
    const char* const pszCommandLine = GetCommandLineA();
    std::FILE* const pFile = std::fopen(std::strrchr(pszCommandLine, ' ') + 1, "wb");
    if (pFile == nullptr) {
        return 1;
    }
    STARTUPINFOA StartupInfo = {};
    GetStartupInfoA(&StartupInfo);
    std::fprintf(pFile, "command line: %s\n", pszCommandLine);
    std::fprintf(pFile, "priority: %lu\n", GetPriorityClass(GetCurrentProcess()));
    std::fprintf(pFile, "startup flags: %lu, show: %u\n", StartupInfo.dwFlags, StartupInfo.wShowWindow);
    std::fprintf(pFile, "end\n");
    std::fclose(pFile);
    return 0;
}
