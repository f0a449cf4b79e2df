// Asks the server whether this crash has a known fix, and starts the repair tool on it.
//
// Only the flagship's 64-bit client is asked for, and only when the tool is installed. The collection and the
// configuration stay their owners' and must outlive the calls.
#pragma once

#include <cstdint>
#include <string>

#include "ui/RepairRules.h"

namespace crashvane {

class Collection;
class Config;

class ZCrashRepair {
  public:
    void SetSource(Collection* pCollection, const Config* pConfig);

    // True: a fix is known, the tool is there and its command line is prepared. Otherwise found is false.
    bool QuerySolution();

    // Starts the tool and brings its window, if it has one already, to the top. False: no command line is prepared, or
    // the start failed (the reason is the thread's last error). May be called again.
    bool StartRepair();

    [[nodiscard]] bool IsFound() const { return m_bFound != 0; }

  private:
    bool FindTool(std::wstring& strTool) const;
    void CopyFacts();

    RepairFacts m_Facts;
    std::string m_strFirstLogin;
    std::wstring m_strCommandLine;
    Collection* m_pCollection = nullptr;
    const Config* m_pConfig = nullptr;
    std::int32_t m_bFound = 0;
};

}  // namespace crashvane
