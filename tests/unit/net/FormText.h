// Forms as they must arrive, put together from lists that the tests write out by hand.
#pragma once

#include <cstdlib>
#include <string>
#include <utility>
#include <vector>

namespace crashvane {

using FieldList = std::vector<std::pair<std::string, std::string>>;

// Of the first form that is sent after FixBoundary.
constexpr const char* FIRST_BOUNDARY = "---------------------------0000002900004823";

inline void FixBoundary() {
    std::srand(1);
}

inline std::string PartText(const std::string& strName, const std::string& strValue) {
    std::string strText = "--";
    strText += FIRST_BOUNDARY;
    strText += "\r\nContent-Disposition: form-data; name=\"" + strName + "\"\r\n\r\n" + strValue + "\r\n";
    return strText;
}

// The body of a form without a file; the fields stand in the order of the wire.
inline std::string FormText(const FieldList& Fields) {
    std::string strText;
    for (const auto& [strName, strValue] : Fields) {
        strText += PartText(strName, strValue);
    }
    strText += "\r\n--";
    strText += FIRST_BOUNDARY;
    strText += "--\r\n";
    return strText;
}

}  // namespace crashvane
