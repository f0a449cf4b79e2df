// The option parser and Config::LoadCmd against the option rules written a second time. Input: one argument a line.
#include <optional>
#include <vector>

#include "Fuzz.h"
#include "LogLines.h"
#include "driver/Config.h"
#include "driver/OptionParser.h"
#include "native/World.h"

namespace {

constexpr const char* Options = "bmdf:as:r:c:p:";

struct Step {
    int nResult = 0;
    std::optional<std::string> strValue;  // of an option that takes one
};

// Puts a stream in memory in place of the standard error of the C library.
class StandardError {
  public:
    StandardError() : m_pOld(stderr) { stderr = open_memstream(&m_pText, &m_uSize); }
    StandardError(const StandardError&) = delete;
    StandardError& operator=(const StandardError&) = delete;
    ~StandardError() {
        std::fclose(stderr);
        stderr = m_pOld;
        std::free(m_pText);
    }
    [[nodiscard]] std::string Text() const {
        std::fflush(stderr);
        return std::string(m_pText, m_uSize);
    }

  private:
    std::FILE* m_pOld;
    char* m_pText = nullptr;
    std::size_t m_uSize = 0;
};

// The whole scan at once: every result in turn, and all that is said.
std::vector<Step> ScanAll(const std::vector<std::string>& Arguments, std::string& strSaid) {
    std::vector<Step> Steps;
    std::size_t uArgument = 1;
    while (uArgument < Arguments.size()) {
        const std::string& strArgument = Arguments[uArgument];
        if (strArgument.size() < 2 || strArgument[0] != '-' || strArgument[1] == '-') {
            break;
        }
        const std::size_t uThis = uArgument++;
        for (std::size_t uLetter = 1; uLetter < strArgument.size(); ++uLetter) {
            const char cLetter = strArgument[uLetter];
            const std::string strWhere =
                "Error in argument " + std::to_string(uThis) + ", char " + std::to_string(uLetter + 1) + ": ";
            if (cLetter == ':') {
                strSaid += strWhere + ": in flags\n";
                Steps.push_back({'?', {}});
                break;
            }
            const bool bFlag = std::string("bmda").find(cLetter) != std::string::npos;
            const bool bValue = std::string("fsrcp").find(cLetter) != std::string::npos;
            if (!bFlag && !bValue) {
                strSaid += strWhere + "option not found " + cLetter + "\n";
                Steps.push_back({'?', {}});
            } else if (bFlag) {
                Steps.push_back({cLetter, {}});
            } else if (uArgument < Arguments.size()) {
                Steps.push_back({cLetter, Arguments[uArgument++]});
                break;
            } else {
                strSaid += strWhere + "no argument for option " + cLetter + "\n";
                Steps.push_back({'?', {}});
                break;
            }
        }
    }
    return Steps;
}

void CheckParser(std::vector<char*>& Pointers, const std::vector<Step>& Expected, const std::string& strExpectedSaid) {
    const StandardError Said;
    const int nCount = static_cast<int>(Pointers.size()) - 1;
    crashvane::ResetOptions();
    for (const Step& Each : Expected) {
        fuzz::Require(crashvane::NextOption(nCount, Pointers.data(), Options) == Each.nResult, "the next option");
        if (Each.strValue) {
            fuzz::RequireSame(std::string(crashvane::optarg), *Each.strValue, "the option's value");
        }
    }
    fuzz::Require(crashvane::NextOption(nCount, Pointers.data(), Options) == -1, "the end of the options");
    fuzz::RequireSame(Said.Text(), strExpectedSaid, "what is said of mistakes");
}

std::string LastValue(const std::vector<Step>& Steps, char cLetter) {
    std::string strValue;
    for (const Step& Each : Steps) {
        strValue = Each.nResult == cLetter ? *Each.strValue : strValue;
    }
    return strValue;
}

int IsSet(const std::vector<Step>& Steps, char cLetter) {
    return std::any_of(Steps.begin(), Steps.end(), [&](const Step& Each) { return Each.nResult == cLetter; }) ? 1 : 0;
}

std::string ExpectedSettingsFile(const std::vector<Step>& Steps) {
    std::string strPath = LastValue(Steps, 's');
    if (strPath.empty() || (strPath[0] != '\\' && strPath[0] != '/' && strPath.substr(1, 1) != ":")) {
        strPath = strPath.empty() ? strPath : "C:\\run\\" + strPath;
    }
    return strPath.empty() || strPath.size() > 259 ? "C:\\game\\bin\\Crashvane.cfg" : strPath;
}

void CheckConfig(std::vector<char*>& Pointers, const std::vector<Step>& Steps) {
    const StandardError Said;
    const fuzz::LogLines Log;
    crashvane::Config Settings;
    Settings.m_bBatchMode = Settings.m_bSendDump = Settings.m_bProjectFromCmd = 7;
    crashvane::ResetOptions();
    const int nResult = Settings.LoadCmd(static_cast<int>(Pointers.size()) - 1, Pointers.data());
    if (Pointers.size() == 2) {
        fuzz::Require(nResult == 0, "no argument is a failure");
        Log.RequireCheck("argc > 1", "Config::LoadCmd");
        return;
    }
    fuzz::RequireSame(Settings.m_strCrashReportFile, LastValue(Steps, 'f'), "-f");
    fuzz::RequireSame(Settings.m_strRestartCmdLine, LastValue(Steps, 'c'), "-c");
    fuzz::RequireSame(Settings.m_strRestartApp, LastValue(Steps, 'r'), "-r");
    fuzz::RequireSame(Settings.m_strProject, LastValue(Steps, 'p'), "-p");
    fuzz::Require(Settings.m_bProjectFromCmd == IsSet(Steps, 'p'), "-p is remembered");
    fuzz::Require(Settings.m_bBatchMode == IsSet(Steps, 'b') && Settings.m_bSendActiveMachine == IsSet(Steps, 'a') &&
                      Settings.m_bSendDump == IsSet(Steps, 'd') && Settings.m_bSendSession == IsSet(Steps, 'm'),
                  "-b -a -d -m");
    const bool bReport = !LastValue(Steps, 'f').empty();
    fuzz::Require(nResult == (bReport ? 1 : 0), "a report must be named");
    Log.RequireCheck(bReport ? "" : "!m_strCrashReportFile.empty()", "Config::LoadCmd");
    if (bReport) {
        fuzz::RequireSame(Settings.m_strConfigFile, ExpectedSettingsFile(Steps), "-s");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uSize) {
    native::ResetWorld();
    fuzz::Input Given(pBytes, uSize);
    std::vector<std::string> Arguments = {"Crashvane.exe"};
    while (!Given.IsEmpty()) {
        Arguments.push_back(fuzz::UpToZero(Given.Line()));
    }
    std::vector<char*> Pointers;
    for (std::string& strArgument : Arguments) {
        Pointers.push_back(strArgument.data());
    }
    Pointers.push_back(nullptr);
    std::string strSaid;
    const std::vector<Step> Steps = ScanAll(Arguments, strSaid);
    CheckParser(Pointers, Steps, strSaid);
    CheckConfig(Pointers, Steps);
    return 0;
}
