#include "driver/Config.h"

#include "driver/OptionParser.h"
#include "log/Check.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Profile.h"

namespace crashvane {

namespace {

constexpr const char OPTIONS[] = "bmdf:as:r:c:p:";
constexpr const char SETTINGS_FILE[] = "Crashvane.cfg";
constexpr const char SETTINGS_SECTION[] = "Crashvane";

constexpr const char DUMP_FILE_URL[] = "http://" CRASHVANE_SERVER_HOST "/dumpserver/dumpfile.php";
constexpr const char DUMP_INFO_URL[] = "http://" CRASHVANE_SERVER_HOST "/dumpserver/dumpinfo.php";
constexpr const char PLAYER_LOGIN_URL[] = "http://" CRASHVANE_SERVER_HOST "/dumpserver/playerloginbase.php";
constexpr const char SESSION_URL[] = "http://" CRASHVANE_SERVER_HOST "/dumpserver/dumpsession.php";
constexpr const char DUMP_SOLUTION_URL[] = "http://" CRASHVANE_SERVER_HOST "/dump_api/get_solution";
constexpr const char DUMP_TYPE_URL[] = "http://" CRASHVANE_SERVER_HOST "/dump_api/get_dump_type";

// Stores an option's value in the field that the letter stands for.
void TakeValue(Config& Settings, int nOption, const char* pszValue) {
    switch (nOption) {
        case 'f':
            Settings.m_strCrashReportFile = pszValue;
            break;
        case 'c':
            Settings.m_strRestartCmdLine = pszValue;
            break;
        case 'r':
            Settings.m_strRestartApp = pszValue;
            break;
        case 's':
            Settings.m_strConfigFile = FullPath(pszValue);
            break;
        default:
            Settings.m_strProject = pszValue;
            Settings.m_bProjectFromCmd = 1;
            break;
    }
}

}  // namespace

int Config::Init(int argc, char** argv) {
    int nResult = 0;
    int nRetCode = 0;

    nRetCode = LoadCmd(argc, argv);
    ZTLOG_PROCESS_ERROR(nRetCode);

    if (!m_bProjectFromCmd) {
        nRetCode = LoadSetting(m_strConfigFile);
        ZTLOG_PROCESS_ERROR(nRetCode);
    }

    nResult = 1;
Exit0:
    return nResult;
}

int Config::LoadCmd(int argc, char** argv) {
    int nResult = 0;
    int nOption = OptionEnd;

    ZTLOG_PROCESS_ERROR(argc > 1);
    ZTLOG_PROCESS_ERROR(argv);

    m_bBatchMode = 0;
    m_bSendActiveMachine = 0;
    m_bSendDump = 0;
    m_bSendSession = 0;
    m_bProjectFromCmd = 0;

    while ((nOption = NextOption(argc, argv, OPTIONS)) != OptionEnd) {
        switch (nOption) {
            case 'b':
                m_bBatchMode = 1;
                break;
            case 'a':
                m_bSendActiveMachine = 1;
                break;
            case 'd':
                m_bSendDump = 1;
                break;
            case 'm':
                m_bSendSession = 1;
                break;
            case OptionError:
                break;
            default:
                ZTLOG_PROCESS_ERROR(optarg);
                TakeValue(*this, nOption, optarg);
                break;
        }
    }
    ZTLOG_PROCESS_ERROR(!m_strCrashReportFile.empty());

    if (m_strConfigFile.empty()) {
        m_strConfigFile = CombinePath(ModuleFolder(), SETTINGS_FILE);
    }

    nResult = 1;
Exit0:
    return nResult;
}

int Config::LoadSetting(const std::string& strPath) {
    int nResult = 0;
    int nRetCode = 0;

    nRetCode = FileExists(strPath);
    ZTLOG_PROCESS_ERROR(nRetCode);

    m_bSendSystemException = ReadProfileNumber(strPath, SETTINGS_SECTION, "SendSystemException", 1) != 0;

    m_strDumpFileUrl = ReadProfileText(strPath, SETTINGS_SECTION, "DumpFileUrl", DUMP_FILE_URL);
    ZTLOG_PROCESS_ERROR(!m_strDumpFileUrl.empty());

    m_strDumpInfoUrl = ReadProfileText(strPath, SETTINGS_SECTION, "DumpInfoUrl", DUMP_INFO_URL);
    ZTLOG_PROCESS_ERROR(!m_strDumpInfoUrl.empty());

    m_strPlayerLoginUrl = ReadProfileText(strPath, SETTINGS_SECTION, "PlayerLoginUrl", PLAYER_LOGIN_URL);
    ZTLOG_PROCESS_ERROR(!m_strPlayerLoginUrl.empty());

    m_strSessionUrl = ReadProfileText(strPath, SETTINGS_SECTION, "SessionUrl", SESSION_URL);
    ZTLOG_PROCESS_ERROR(!m_strSessionUrl.empty());

    m_strDumpSolutionUrl = ReadProfileText(strPath, SETTINGS_SECTION, "DumpSolutionUrl", DUMP_SOLUTION_URL);
    ZTLOG_PROCESS_ERROR(!m_strDumpSolutionUrl.empty());

    m_strProject = ReadProfileText(strPath, SETTINGS_SECTION, "Project");
    ZTLOG_PROCESS_ERROR(!m_strProject.empty());

    nResult = 1;
Exit0:
    return nResult;
}

void Config::SetDefaults() {
    m_strDumpFileUrl = DUMP_FILE_URL;
    m_strDumpInfoUrl = DUMP_INFO_URL;
    m_strPlayerLoginUrl = PLAYER_LOGIN_URL;
    m_strSessionUrl = SESSION_URL;
    m_strDumpSolutionUrl = DUMP_SOLUTION_URL;
    m_strDumpTypeUrl = DUMP_TYPE_URL;
}

void Config::Clear() {
    *this = Config();
}

}  // namespace crashvane
