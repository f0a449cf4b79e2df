// Where a product's files are: relative to the folder of the running program.
#pragma once

#include <string>

#include "util/Paths.h"

namespace crashvane {

// The absolute path of a file or folder named relative to the program's folder, ".." resolved. Empty when it would be
// longer than the system allows.
inline std::string BesideProgram(const std::string& strName) {
    return CombinePath(ModuleFolder(), strName);
}

}  // namespace crashvane
