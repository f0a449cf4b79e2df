// What each request to the crash server tells: plain records of texts, copied out of the report before it is sent.
//
// A member is named as its field on the wire. Texts are in the ANSI code page; numbers are printed into them, amounts
// of memory in whole mebibytes.
#pragma once

#include <string>

#include "report/CrashReporter.h"

namespace crashvane {

struct ActiveMachineInfo {
    std::string uuid;
    std::string newuuid;
    std::string ver;
    std::string verex;
    std::string threadtype;
    std::string bittype;
    std::string videocard;
    std::string cpubrand;
    std::string totalphysmem;
};

struct DumpInfo {
    std::string guid;
    std::string key;
    std::string uuid;
    std::string newuuid;
    std::string clientname;
    std::string exceptionmodule;
    std::string ProcessName;
    std::string ProcessInstance;
    std::string ver;
    std::string verex;
    std::string threadtype;
    std::string bittype;
    std::string timetofailure;  // whole minutes
    std::string account;        // this and the next three: the last login, which the report does not hold
    std::string rolename;
    std::string regionname;
    std::string servername;
    std::string videocard;
    std::string driver;
    std::string driverversion;
    std::string videocardfreemem;
    std::string videocardmem;
    std::string physfreemem;
    std::string totalphysmem;
    std::string PageFileAvai;
    std::string PageFileTotal;
    std::string cpubrand;
    std::string os;
    std::string ProcessPhysicsMemUsed;
    std::string ProcessPagefileUsed;
    std::string ProcessPhysicsMemPeak;
    std::string ProcessPagefilePeak;
    std::string custominfo;  // every line followed by ";"
};

struct SessionInfo {
    std::string uuid;
    std::string newuuid;
    std::string ver;
    std::string verex;
    std::string clientname;
};

struct DumpFileInfo {
    std::string key;
    std::string guid;
    std::string file;    // the archive's absolute path
    std::string remark;  // what the player wrote
};

// Copy what the report holds; 0 only when there is no record to fill.
int FillActiveMachineInfo(ActiveMachineInfo* pInfo, const CrashReporter& Report);
int FillDumpInfo(DumpInfo* pInfo, const CrashReporter& Report);
int FillSessionInfo(SessionInfo* pInfo, const CrashReporter& Report);

}  // namespace crashvane
