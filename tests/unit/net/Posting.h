// One call of the client and all that it gave back.
#pragma once

#include <string>

#include "net/FormPostClient.h"

namespace crashvane {

struct Posted {
    bool bResult = false;
    int nStatus = -1;
    std::wstring strAnswer = L"untouched";
};

inline Posted Post(const std::wstring& strUrl, const ParameterMap& Parameters = {{L"a", L"1"}},
                   const std::wstring& strFile = L"", const std::wstring& strPart = L"") {
    Posted Result;
    Result.bResult =
        FormPostClient::Post(strUrl, Parameters, strFile, strPart, nullptr, &Result.strAnswer, &Result.nStatus);
    return Result;
}

}  // namespace crashvane
