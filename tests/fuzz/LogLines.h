// The lines that the fuzzed code logs, without their prefix, while an object of this class lives.
#pragma once

#include <string>
#include <vector>

#include "Fuzz.h"
#include "log/Log.h"
#include "native/World.h"

namespace fuzz {

class LogLines {
  public:
    LogLines() {
        crashvane::LogSettings Settings = {};
        Settings.uFlags = crashvane::LogToStandardError;
        crashvane::Log::Start(Settings);
        native::TheWorld().strStandardError.clear();
    }
    LogLines(const LogLines&) = delete;
    LogLines& operator=(const LogLines&) = delete;
    ~LogLines() { crashvane::Log::Start(crashvane::LogSettings{}); }

    [[nodiscard]] std::vector<std::string> Lines() const {
        std::vector<std::string> Result;
        const std::string& strAll = native::TheWorld().strStandardError;
        for (std::size_t uAt = 0; uAt < strAll.size();) {
            const std::size_t uEnd = std::min(strAll.find('\n', uAt), strAll.size());
            const std::string strLine = strAll.substr(uAt, uEnd - uAt);
            const std::size_t uPrefix = strLine.find(">: ");
            Result.push_back(strLine.substr(uPrefix == std::string::npos ? 0 : uPrefix + 3));
            uAt = uEnd + 1;
        }
        return Result;
    }

    // There is exactly this one failed check, or none (empty).
    void RequireCheck(const std::string& strCondition, const std::string& strFunction) const {
        const std::vector<std::string> Found = Lines();
        if (strCondition.empty()) {
            Require(Found.empty(), "no check line");
            return;
        }
        Require(Found.size() == 1, "one check line");
        const std::string strBegin = "ZTLOG_PROCESS_ERROR(" + strCondition + ") at line ";
        const std::string strEnd = " in " + strFunction;
        RequireSame(Found[0].substr(0, strBegin.size()), strBegin, "the check line names the condition");
        RequireSame(Found[0].substr(std::max(Found[0].size(), strEnd.size()) - strEnd.size()), strEnd,
                    "the check line names the function");
    }
};

}  // namespace fuzz
