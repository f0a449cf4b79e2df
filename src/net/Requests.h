// The requests to the crash server: a record becomes a form and is posted to one address.
//
// All return 1 when the server answered with status 200 and the whole answer arrived, else 0; nothing is logged. URL,
// project key and records are in the ANSI code page. They throw when there is no memory to put the form together.
#pragma once

#include <string>

#include "net/RequestRecords.h"

namespace crashvane {

int PostActiveMachine(const std::string& strUrl, const std::string& strProject, const ActiveMachineInfo& Info);
int PostSession(const std::string& strUrl, const std::string& strProject, const SessionInfo& Info);
int PostDumpInfo(const std::string& strUrl, const std::string& strProject, const DumpInfo& Info);

// nCrashType: the number that the answer begins with, 0 when the request failed or the answer is no number.
int PostDumpSolution(const std::string& strUrl, const std::string& strProject, const std::string& strDumpKey,
                     int& nCrashType);

// Sends the archive that Info.file names as the file part.
int PostDumpFile(const std::string& strUrl, const std::string& strProject, const DumpFileInfo& Info);

}  // namespace crashvane
