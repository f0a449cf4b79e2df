#include "driver/RepairOffer.h"

#include "log/Log.h"
#include "ui/MessageBoxes.h"

namespace crashvane {

void LogSolution(bool bFound) {
    Log::Write(LogInfo, bFound ? "[main] This crash can be fixed." : "[main] No solution was found.");
}

void OfferRepair(ZCrashRepair& CrashRepair) {
    if (!AskForRepair()) {
        Log::Write(LogInfo, "[main] The repaire of solution has been canceled!");
        return;
    }
    if (!CrashRepair.StartRepair()) {
        ShowRepairError();
        Log::Write(LogInfo, "[main] StartRepair failed!");
        return;
    }
    Log::Write(LogInfo, "[main] StartRepair success.");
}

}  // namespace crashvane
