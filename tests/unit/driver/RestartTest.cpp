#include "driver/Restart.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <fstream>
#include <sstream>

#include "support/LogCapture.h"

namespace crashvane {
namespace {

// restart_probe.exe lies beside this test program and writes how it was started into the file that its command line
// names last.
std::string ProbePath() {
    char szFile[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, szFile, sizeof(szFile));
    const std::string strFile = szFile;
    return strFile.substr(0, strFile.rfind('\\') + 1) + "restart_probe.exe";
}

std::string WaitForFile(const char* pszName) {
    for (int nTry = 0; nTry < 200; ++nTry) {
        std::ifstream Stream(pszName, std::ios::binary);
        std::ostringstream Content;
        if (Stream && Content << Stream.rdbuf() && Content.str().find("end\n") != std::string::npos) {
            Stream.close();
            DeleteFileA(pszName);
            return Content.str();
        }
        Sleep(50);
    }
    return "the probe wrote nothing";
}

TEST(Restart, HandsTheCommandLineOverAsItStands) {
    RestartGame(ProbePath(), "game \"two words\" -x restarted.txt");
    EXPECT_THAT(WaitForFile("restarted.txt"),
                testing::HasSubstr("command line: game \"two words\" -x restarted.txt\n"));
}

TEST(Restart, StartsAtNormalPriorityAndWithTheCallersStartupInformation) {
    STARTUPINFOA Own = {};
    GetStartupInfoA(&Own);
    RestartGame(ProbePath(), "game restarted.txt");
    const std::string strSaid = WaitForFile("restarted.txt");
    EXPECT_THAT(strSaid, testing::HasSubstr("priority: 32\n"));
    EXPECT_THAT(strSaid, testing::HasSubstr("startup flags: " + std::to_string(Own.dwFlags) +
                                            ", show: " + std::to_string(Own.wShowWindow) + "\n"));
}

TEST(Restart, LogsNothingWhenItWentWell) {
    const LogCapture Log;
    RestartGame(ProbePath(), "game restarted.txt");
    EXPECT_THAT(WaitForFile("restarted.txt"), testing::EndsWith("end\n"));
    EXPECT_THAT(Log.Lines(), testing::IsEmpty());
}

TEST(Restart, LogsWhyAProgramCannotBeStarted) {
    const LogCapture Log;
    RestartGame("C:\\no such game.exe", "game");
    ASSERT_THAT(Log.Lines(), testing::SizeIs(testing::Ge(1u)));
    EXPECT_THAT(Log.Lines()[0], testing::MatchesRegex("Start process error! ..*"));
    EXPECT_THAT(Log.WholeLines()[0], testing::HasSubstr("<DEBUG:"));
}

}  // namespace
}  // namespace crashvane
