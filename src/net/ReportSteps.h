// The steps of a run that tell the server about a machine, a session and a crash: fill the record, send it, log what
// failed.
//
// All return 1 or 0 and never throw; a step that finds no memory has failed. None of them stops the run.
#pragma once

#include <string>

#include "collection/Collection.h"
#include "driver/Config.h"

namespace crashvane {

int SendActiveMachine(Collection* pCollection, const Config& Settings);
int SendSession(Collection* pCollection, const Config& Settings);

// 1 once the record is filled: a failed request is logged and nothing more.
int SendDumpInfo(Collection* pCollection, const Config& Settings);

// Asks whether the crash with this key has a known solution. nCrashType: the server's number, 0 when the request
// failed or the answer is no number.
int SendDumpSolution(const Config& Settings, const std::string& strDumpKey, int& nCrashType);

}  // namespace crashvane
