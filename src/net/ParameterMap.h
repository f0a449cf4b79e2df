// The fields of a form: name to value, in the order in which they go on the wire.
#pragma once

#include <map>
#include <string>

namespace crashvane {

// Ordered by the names' code units, so that capitals come before small letters. The order is part of the wire format.
using ParameterMap = std::map<std::wstring, std::wstring>;

}  // namespace crashvane
