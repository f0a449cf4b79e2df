// Starts the game again after the report, as the player chose in the dialog.
#pragma once

#include <string>

namespace crashvane {

// Starts strProgram with the command line strCommandLine and waits for nothing; the new process is shown as this one
// was. A failure is logged.
void RestartGame(const std::string& strProgram, const std::string& strCommandLine);

}  // namespace crashvane
