// Which edition of a product crashed, told by the name of its executable.
#pragma once

#include <span>
#include <string>

namespace crashvane {

struct Edition {
    const char* pszExecutable;  // in lower case
    const char* pszCode;
};

// The code of the first row whose executable is strExecutable, lower-cased byte by byte; pszOther for all others.
std::string EditionOf(const std::string& strExecutable, std::span<const Edition> Editions, const char* pszOther);

}  // namespace crashvane
