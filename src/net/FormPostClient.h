// The one network client: a form goes to the server as a single HTTP POST, and the answer comes back.
//
// A call opens what it needs, blocks until the server has answered or the platform gives up, and closes everything
// again; nothing survives it and nothing is logged. The system's proxy settings apply, and no time-out but the
// platform's own.
#pragma once

#include <string>

#include "net/ParameterMap.h"

namespace crashvane {

class FormPostClient {
  public:
    // True only when the request was sent, the server answered with status 200, and the whole answer was read. Never
    // throws: a body or an answer that finds no memory is a failure like any other.
    //
    // strUrl: scheme "http" or "https" in small letters. strUploadFile: empty for none; strFilePartName is its form
    // field and must not be empty then. pnTimeout: accepted and not looked at. pstrResponseBody (may be null): written
    // on success only. pnResponseCode (may be null): the status, 0 as long as none was read.
    static bool Post(const std::wstring& strUrl, const ParameterMap& Parameters, const std::wstring& strUploadFile,
                     const std::wstring& strFilePartName, const int* pnTimeout, std::wstring* pstrResponseBody,
                     int* pnResponseCode);
};

}  // namespace crashvane
