#include "log/FunctionName.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "util/Compat.h"

#define NAME_HERE std::string(crashvane::FunctionName(CRASHVANE_SIGNATURE).szText)

std::string Global(int) {
    return NAME_HERE;
}

namespace crashvane {

struct Config {
    std::string LoadCmd(int, char**) { return NAME_HERE; }
    const std::string& Reference(std::string& strName) const {
        strName = NAME_HERE;
        return strName;
    }
    static std::string LoadStringA(void (*)(int)) { return NAME_HERE; }
    int WithTemplates(std::vector<std::string>& Names, const std::vector<std::vector<int>>&) {
        Names.push_back(NAME_HERE);
        return 1;
    }
};

std::string Free() {
    return NAME_HERE;
}

namespace {

std::string Hidden(const char*) {
    return NAME_HERE;
}

TEST(FunctionName, IsClassAndFunction) {
    EXPECT_EQ(Config().LoadCmd(0, nullptr), "Config::LoadCmd");
}

TEST(FunctionName, LeavesOutTheReturnTypeAndQualifiers) {
    std::string strName;
    EXPECT_EQ(Config().Reference(strName), "Config::Reference");
}

TEST(FunctionName, KnowsFunctionPointersAmongTheParameters) {
    EXPECT_EQ(Config::LoadStringA(nullptr), "Config::LoadStringA");
}

TEST(FunctionName, KnowsTemplatesAmongTheParameters) {
    std::vector<std::string> Names;
    Config().WithTemplates(Names, {});
    EXPECT_EQ(Names.at(0), "Config::WithTemplates");
}

TEST(FunctionName, LeavesOutNamespaces) {
    EXPECT_EQ(Free(), "Free");
    EXPECT_EQ(Hidden(nullptr), "Hidden");
    EXPECT_EQ(Global(0), "Global");
}

}  // namespace
}  // namespace crashvane
