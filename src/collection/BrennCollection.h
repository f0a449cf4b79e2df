// The flagship client and the tools installed with it. The program stands in a subfolder of the game, so everything
// read here is one folder up.
#pragma once

#include <string>

#include "collection/Collection.h"

namespace crashvane {

class BrennCollection : public Collection {
  public:
    inline static const std::string ProjectKey = "BRENN";

    int GetProjectImgId() override;  // by the line name: the edition's language
    const std::string& GetProjectName() override { return ProjectKey; }
    bool IsForceSend() override;  // the test editions
    int CollectConfigFile() override;
    int CollectInfo() override;  // engine options
    int CollectLog() override;
    int CollectLoginInfo() override;  // the account whose "login.ini" was written nearest to the crash
    int CollectVersion() override;
    int CollectProductThreadType() override;
};

}  // namespace crashvane
