// Lists in the log which processes run and how much memory each uses.
#pragma once

namespace crashvane {

// One line a process at level 6: id, executable name, working set and page file in whole mebibytes. Processes that
// may not be opened are left out silently.
void EnumProcessMemoryInfo();

}  // namespace crashvane
