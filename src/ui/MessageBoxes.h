// The program's message boxes. Their texts are Chinese whatever the user's language, and shown through the wide
// interface, so that they are right under every code page. An owner is disabled while its box is up.
#pragma once

#include <windows.h>

namespace crashvane {

// Asks whether the repair tool shall be started; true on OK.
bool AskForRepair();

void ShowRepairError(HWND hOwner = nullptr);
void ShowViewError(HWND hOwner = nullptr);

}  // namespace crashvane
