#include "collection/Editions.h"

#include "util/Text.h"

namespace crashvane {

std::string EditionOf(const std::string& strExecutable, std::span<const Edition> Editions, const char* pszOther) {
    const std::string strLower = ToLower(strExecutable);

    for (const Edition& Row : Editions) {
        if (strLower == Row.pszExecutable) {
            return Row.pszCode;
        }
    }
    return pszOther;
}

}  // namespace crashvane
