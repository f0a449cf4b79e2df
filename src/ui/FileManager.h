// Shows a file in the system's file manager.
#pragma once

#include <string>

namespace crashvane {

// Starts the file manager on the folder of the file with the file selected. The path, absolute and in the ANSI code
// page, is handed over as it is, unquoted. False: the file manager could not be started.
bool SelectInFileManager(const std::string& strPath);

}  // namespace crashvane
