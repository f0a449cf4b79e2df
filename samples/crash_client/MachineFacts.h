// What a report says about the computer. Gathered when the game starts, because most of it asks the registry and
// other processes, which a crashed process should not do.
#pragma once

#include <windows.h>

#include "ReportFile.h"

namespace sample {

struct MachineFacts {
    char szIp[64];
    char szUuid[64];     // of the mainboard's firmware
    char szNewUuid[64];  // of the Windows installation
    char szOs[64];
    char szProcessor[128];
    char szVideoCard[256];
    char szVideoDriver[256];
    char szVideoDriverVersion[64];
    unsigned long long uVideoMemory;  // bytes; 0: not known
};

// What cannot be found stays empty. Call once, early.
void GatherMachineFacts(MachineFacts& Facts);

// Writes the element "Machine"; memory is asked for now.
void WriteMachine(ReportFile& Report, const MachineFacts& Facts);

}  // namespace sample
