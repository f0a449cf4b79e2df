// Does with the code of the window room what the program's own path never does.
//
// dialoghost IMAGE_ID [TIMES]: shows the dialog with any image, and many times over; prints "<result> <GDI
// brushes> <other GDI objects> <registered forms> <registered links>" after each, the objects counted in the process's
// own handle table. Log lines go to standard error.
// dialoghost raise PROCESS_ID: raises the window of a process.
#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "log/Log.h"
#include "ui/Foreground.h"
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

struct GdiCount {
    int nBrushes = 0;
    int nOthers = 0;
};

GdiCount CountGdiObjects() {
    constexpr UCHAR uBrush = 0x10;
    constexpr std::size_t uTableInProcessBlock = 0xF8;
    constexpr int nTableSize = 65536;
    const auto* const pBlock = reinterpret_cast<const unsigned char*>(__readgsqword(0x60));
    const auto* const pTable = *reinterpret_cast<const GdiEntry* const*>(pBlock + uTableInProcessBlock);
    GdiCount Count;
    for (int nEntry = 0; pTable != nullptr && nEntry < nTableSize; ++nEntry) {
        if (pTable[nEntry].uType != 0) {
            ++(pTable[nEntry].uType == uBrush ? Count.nBrushes : Count.nOthers);
        }
    }
    return Count;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace crashvane;
    if (argc > 2 && std::strcmp(argv[1], "raise") == 0) {
        RaiseWindowOf(static_cast<DWORD>(std::atoi(argv[2])));
        return 0;
    }
    LogSettings Settings = {"logs", "Crashvane", LogToStandardError, 1000};
    Log::Start(Settings);
    const int nTimes = argc > 2 ? std::atoi(argv[2]) : 1;
    for (int nTime = 0; argc > 1 && nTime < nTimes; ++nTime) {
        WinForm Form;
        Form.Init(GetModuleHandleW(nullptr), std::atoi(argv[1]), "C:\\crash.dmp", nullptr);
        const INT_PTR nResult = Form.Show();
        Form.Release();
        const GdiCount Count = CountGdiObjects();
        std::printf("%d %d %d %d %d\n", static_cast<int>(nResult), Count.nBrushes, Count.nOthers,
                    static_cast<int>(FormRegistry().size()), static_cast<int>(LinkRegistry().size()));
        std::fflush(stdout);
    }
    return 0;
}
