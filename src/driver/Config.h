// What one run needs to know from outside: which report to send, for which product, to which addresses, and what to do
// besides.
//
// Three layers fill it, each where the one before left a gap: the built-in addresses (SetDefaults), the command line
// (LoadCmd) and the settings file (LoadSetting), which is read only when the command line names no project. The loads
// return 1 or 0; a failure is one log line, and what was set before it keeps its value. Texts are in the ANSI code
// page.
#pragma once

#include <string>

namespace crashvane {

class Config {
  public:
    int m_bBatchMode = 0;              // -b: no solution query, no dialog, no repair offer, empty feedback
    int m_bSendActiveMachine = 0;      // -a: send the active-machine request
    std::string m_strCrashReportFile;  // -f: the report that the crashing client wrote; must be given
    std::string m_strConfigFile;       // -s: settings file, absolute; otherwise the one beside the program
    std::string m_strProject;          // -p, or "Project" of the settings file: selects the collector
    std::string m_strDumpFileUrl;      // the archive goes here
    std::string m_strDumpInfoUrl;      // the crash's description
    std::string m_strPlayerLoginUrl;   // the active-machine request
    std::string m_strSessionUrl;       // the session request
    std::string m_strDumpSolutionUrl;  // checked, but not asked: solutions are asked for at the next one
    std::string m_strDumpTypeUrl;      // the solution query; no key in the settings file
    std::string m_strRestartApp;       // -r: program to start again when the player wants it
    std::string m_strRestartCmdLine;   // -c: its command line
    int m_bSendSystemException = 0;    // stored for those who report crashes inside system modules
    int m_bSendDump = 0;               // -d: describe the crash, ask for a solution, show the dialog, upload
    int m_bSendSession = 0;            // -m: send the session request
    int m_bProjectFromCmd = 0;         // -p was given: the settings file is not read

    // Command line, then the settings file unless the project came from the command line.
    int Init(int argc, char** argv);

    // The process's argument vector, whose first element is the program. Mistakes in single options are said on
    // standard error and do not fail the load.
    int LoadCmd(int argc, char** argv);

    int LoadSetting(const std::string& strPath);

    [[nodiscard]] int IsSendDump() const { return m_bSendDump; }

    // The addresses, each on the crash server that this program was built for.
    void SetDefaults();

    // Empties every text and every flag.
    void Clear();
};

}  // namespace crashvane
