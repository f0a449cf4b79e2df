// What a product's installation adds to a crash report: loads the report, collects, saves it back.
//
// One collector serves a run; a product is a class that overrides what it keeps elsewhere than the defaults say. Every
// file is looked for relative to the program's own folder, but the "Pak" folder: relative to the current folder.
// Results are 1 and 0; what fails is logged and leaves the report as it was. All texts are in the ANSI code page.
#pragma once

#include <string>

#include "report/CrashReporter.h"

namespace crashvane {

class Collection {
  public:
    Collection() = default;
    Collection(const Collection&) = delete;
    Collection& operator=(const Collection&) = delete;

    // Loads the report, collects step by step whatever fails, and writes the report back to the same file. A project
    // that came from the command line leaves the version as the report has it. 0: the report could not be loaded,
    // nothing was collected or written.
    int Init(const std::string& strCrashReportFile, int bProjectFromCmd);

    virtual int GetProjectImgId() = 0;                // resource of the dialog's banner
    virtual const std::string& GetProjectName() = 0;  // the class's own project key
    virtual const std::string& GetProcessName();      // the crashed process
    virtual bool IsForceSend();                       // send the report even if the player declines
    virtual int CollectConfigFile();                  // files to pack: CustomFiles
    virtual int CollectInfo();                        // lines to report: CustomInfos
    virtual int CollectLog();                         // "logs" beside the program
    virtual int CollectLoginInfo();                   // 0: the product keeps no last login
    virtual int CollectVersion();                     // "version.cfg" beside the program
    virtual int CollectProductThreadType();           // 0: the product has no thread model to tell
    virtual int CollectProductBitType();              // "x64"
    virtual ~Collection();

    // From each immediate subfolder of an absolute folder, adds the one "*.log" (there or one level down) that was
    // written nearest to the crash.
    int CollectLog(const std::string& strLogDir);

    // Reads version and version ex from "version.cfg"; the line name is put behind the version ex.
    int CollectVersion(const std::string& strVersionKey, const std::string& strVersionExKey,
                       const std::string& strVersionLineNameKey);

    int AddCustomInfo(const std::string& strInfo);

    CrashReporter m_CrashReporter;
    std::string m_strAccount;  // the last login, as far as the product tells it
    std::string m_strRoleName;
    std::string m_strRegionName;
    std::string m_strServerName;
    std::string m_strCrashReportFile;
    std::string m_strProcessName;
};

}  // namespace crashvane
