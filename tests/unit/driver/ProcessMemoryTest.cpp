#include "driver/ProcessMemory.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <psapi.h>

#include <string>

#include "support/LogCapture.h"

namespace crashvane {
namespace {

using testing::AllOf;
using testing::Contains;
using testing::EndsWith;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

std::string OwnFileName() {
    char szFile[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, szFile, sizeof(szFile));
    const std::string strFile = szFile;
    return strFile.substr(strFile.rfind('\\') + 1);
}

TEST(ProcessMemory, BeginsWithAHeaderAndSaysWhereItEnds) {
    const LogCapture Log;
    EnumProcessMemoryInfo();
    const auto Lines = Log.Lines();
    ASSERT_THAT(Lines, SizeIs(testing::Gt(3u)));
    EXPECT_EQ(Lines[0], "-----Process memory info-----");
    EXPECT_EQ(Lines[1], "PID\tEXE\tWorkingSetSize(MB)\tPagefileUsage(MB)");
    EXPECT_EQ(Lines.back(), "-----End-----");
}

TEST(ProcessMemory, IsWrittenAtTheLevelOfProgress) {
    const LogCapture Log;
    EnumProcessMemoryInfo();
    EXPECT_THAT(Log.WholeLines(), testing::Each(HasSubstr("<INFO :")));
}

TEST(ProcessMemory, ListsThisProcessOnceWithWholeMebibytes) {
    PROCESS_MEMORY_COUNTERS Counters = {};
    ASSERT_TRUE(K32GetProcessMemoryInfo(GetCurrentProcess(), &Counters, sizeof(Counters)));
    const LogCapture Log;
    EnumProcessMemoryInfo();
    std::string strFound;
    for (const std::string& strLine : Log.Lines()) {
        if (strLine.rfind(std::to_string(GetCurrentProcessId()) + "\t" + OwnFileName() + "\t", 0) == 0) {
            EXPECT_EQ(strFound, "") << "listed twice";
            strFound = strLine;
        }
    }
    unsigned uWorkingSet = 0;
    unsigned uPagefile = 0;
    const std::string strNumbers = strFound.substr(strFound.find(".exe\t") + 5);
    ASSERT_EQ(std::sscanf(strNumbers.c_str(), "%u\t%u", &uWorkingSet, &uPagefile), 2) << strFound;
    // A little may have come or gone between the two looks.
    EXPECT_NEAR(uWorkingSet, static_cast<double>(Counters.WorkingSetSize) / 1048576.0, 2.0);
    EXPECT_NEAR(uPagefile, static_cast<double>(Counters.PagefileUsage) / 1048576.0, 2.0);
}

}  // namespace
}  // namespace crashvane
