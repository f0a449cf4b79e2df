// Config::LoadSetting over any settings file: which keys are read, in which order, and what each failure leaves. Input:
// the file; nothing at all stands for a missing one.
#include <iterator>

#include "Fuzz.h"
#include "LogLines.h"
#include "driver/Config.h"
#include "native/World.h"

namespace {

using crashvane::Config;

constexpr const char* Path = "C:\\game\\bin\\Crashvane.cfg";
constexpr std::size_t LongestValue = 1023;

struct Key {
    const char* pszName;
    const char* pszDefault;
    const char* pszCheck;
    std::string Config::*pField;
};

const Key Keys[] = {
    {"DumpFileUrl", "http://crash.example/dumpserver/dumpfile.php", "!m_strDumpFileUrl.empty()",
     &Config::m_strDumpFileUrl},
    {"DumpInfoUrl", "http://crash.example/dumpserver/dumpinfo.php", "!m_strDumpInfoUrl.empty()",
     &Config::m_strDumpInfoUrl},
    {"PlayerLoginUrl", "http://crash.example/dumpserver/playerloginbase.php", "!m_strPlayerLoginUrl.empty()",
     &Config::m_strPlayerLoginUrl},
    {"SessionUrl", "http://crash.example/dumpserver/dumpsession.php", "!m_strSessionUrl.empty()",
     &Config::m_strSessionUrl},
    {"DumpSolutionUrl", "http://crash.example/dump_api/get_solution", "!m_strDumpSolutionUrl.empty()",
     &Config::m_strDumpSolutionUrl},
    {"Project", "", "!m_strProject.empty()", &Config::m_strProject},
};

Config FilledBefore() {
    Config Settings;
    for (const Key& Each : Keys) {
        Settings.*Each.pField = "before";
    }
    Settings.m_strDumpTypeUrl = "before";
    Settings.m_bSendSystemException = 7;
    return Settings;
}

// The leading number is not zero, or there is none to read.
int ExpectedFlag() {
    std::string strValue;
    if (!native::FindSetting(Path, "Crashvane", "SendSystemException", strValue) || strValue.empty()) {
        return 1;
    }
    const std::size_t uFirst = strValue[0] == '-' ? 1 : 0;
    const std::size_t uEnd = std::min(strValue.find_first_not_of("0123456789", uFirst), strValue.size());
    std::uint64_t uNumber = 0;
    for (std::size_t uAt = uFirst; uAt < uEnd; ++uAt) {
        uNumber = (uNumber * 10 + static_cast<std::uint64_t>(strValue[uAt] - '0')) % 0x100000000;
    }
    return uNumber != 0 ? 1 : 0;
}

void CheckSettings() {
    const fuzz::LogLines Log;
    Config Settings = FilledBefore();
    const int nResult = Settings.LoadSetting(Path);
    const Key* pFailed = nullptr;
    fuzz::Require(Settings.m_bSendSystemException == ExpectedFlag(), "SendSystemException is 0 or 1");
    for (const Key& Each : Keys) {
        std::string strExpected = "before";
        if (pFailed == nullptr) {
            if (!native::FindSetting(Path, "Crashvane", Each.pszName, strExpected)) {
                strExpected = Each.pszDefault;
            }
            strExpected.resize(std::min(strExpected.size(), LongestValue));
            pFailed = strExpected.empty() ? &Each : nullptr;
        }
        fuzz::RequireSame(Settings.*Each.pField, strExpected, Each.pszName);
    }
    fuzz::Require(nResult == (pFailed == nullptr ? 1 : 0), "every key has to have a value");
    Log.RequireCheck(pFailed != nullptr ? pFailed->pszCheck : "", "Config::LoadSetting");
    fuzz::RequireSame(Settings.m_strDumpTypeUrl, std::string("before"), "the solution query has no key");
}

void CheckMissing() {
    const fuzz::LogLines Log;
    Config Settings = FilledBefore();
    fuzz::Require(Settings.LoadSetting(Path) == 0, "a missing file is a failure");
    Log.RequireCheck("nRetCode", "Config::LoadSetting");
    fuzz::RequireSame(Settings.m_strProject, std::string("before"), "nothing is set");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uSize) {
    native::ResetWorld();
    if (uSize == 0) {
        CheckMissing();
        native::MakeFolder(Path);
        CheckMissing();
    } else {
        native::MakeFile(Path, fuzz::Input(pBytes, uSize).Rest());
        CheckSettings();
    }
    return 0;
}
