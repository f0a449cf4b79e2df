// Shows the dialog as the program does, but with what the program's own path never gives it: any image id, and many
// times over. dialoghost IMAGE_ID [TIMES]: prints "<result> <GDI objects> <registered forms> <registered links>" after
// each dialog; log lines go to standard error. The counts come from the process's own handle table.
#include <windows.h>

#include <cstdio>
#include <cstdlib>

#include "log/Log.h"
#include "ui/Registries.h"
#include "ui/WinForm.h"

namespace {

// One entry of the table of GDI handles that the process block points to.
struct GdiEntry {
    ULONG64 uObject;
    USHORT uProcessId;
    USHORT uCount;
    USHORT uUnique;
    UCHAR uType;
    UCHAR uFlags;
    ULONG64 uUser;
};

int CountGdiObjects() {
    constexpr std::size_t uTableInProcessBlock = 0xF8;
    constexpr int nTableSize = 65536;
    const auto* const pBlock = reinterpret_cast<const unsigned char*>(__readgsqword(0x60));
    const auto* const pTable = *reinterpret_cast<const GdiEntry* const*>(pBlock + uTableInProcessBlock);
    int nCount = 0;
    for (int nEntry = 0; pTable != nullptr && nEntry < nTableSize; ++nEntry) {
        nCount += pTable[nEntry].uType != 0;
    }
    return nCount;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace crashvane;
    LogSettings Settings = {"logs", "Crashvane", LogToStandardError, 1000};
    Log::Start(Settings);
    const int nTimes = argc > 2 ? std::atoi(argv[2]) : 1;
    for (int nTime = 0; argc > 1 && nTime < nTimes; ++nTime) {
        WinForm Form;
        Form.Init(GetModuleHandleW(nullptr), std::atoi(argv[1]), "C:\\crash.dmp", nullptr);
        const INT_PTR nResult = Form.Show();
        Form.Release();
        std::printf("%d %d %d %d\n", static_cast<int>(nResult), CountGdiObjects(),
                    static_cast<int>(FormRegistry().size()), static_cast<int>(LinkRegistry().size()));
        std::fflush(stdout);
    }
    return 0;
}
