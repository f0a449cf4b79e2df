// Stands in for the repair tool of the flagship product: shows what it was asked to repair, and writes it down beside
// itself (Mendwell.txt) for those who look later. Its window goes by itself after half a minute.
#include <windows.h>

#include <cstdio>
#include <string>

namespace {

constexpr UINT SHOWN_FOR = 30000;  // milliseconds

std::string BesideProgram(const char* pszName) {
    char szProgram[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, szProgram, sizeof(szProgram));
    const std::string strProgram = szProgram;
    return strProgram.substr(0, strProgram.rfind('\\') + 1) + pszName;
}

VOID CALLBACK EndProgram(HWND, UINT, UINT_PTR, DWORD) {
    ExitProcess(0);
}

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR pszCmdLine, int) {
    std::FILE* const pFile = std::fopen(BesideProgram("Mendwell.txt").c_str(), "wb");
    if (pFile != nullptr) {
        std::fprintf(pFile, "%s\r\n", GetCommandLineA());
        std::fclose(pFile);
    }
    SetTimer(nullptr, 0, SHOWN_FOR, EndProgram);
    MessageBoxA(nullptr, pszCmdLine, "Stand-in for the repair tool", MB_OK | MB_ICONINFORMATION);
    return 0;
}
