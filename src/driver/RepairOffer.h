// What the run says and asks about a known solution of the crash.
#pragma once

#include "ui/ZCrashRepair.h"

namespace crashvane {

// Logs whether the server knows a solution that can be started here.
void LogSolution(bool bFound);

// Asks the player whether to see the solution, starts the repair tool on a yes, and logs how it went; a failed start
// is shown to the player.
void OfferRepair(ZCrashRepair& CrashRepair);

}  // namespace crashvane
