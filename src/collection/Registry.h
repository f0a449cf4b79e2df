// Turns a project key into the collector of the run.
#pragma once

#include <string>

#include "collection/Collection.h"

namespace crashvane {

// The collector whose key this is, letter case apart; DefaultCollection for every other key. Never null; the same key
// gives the same object, which lives to the end of the program and must not be deleted.
Collection* CreateCollection(const std::string& strProject);

}  // namespace crashvane
