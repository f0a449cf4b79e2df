#include "driver/OwnVersion.h"

#include <gmock/gmock.h>
#include <windows.h>

#include "support/LogCapture.h"

namespace crashvane {
namespace {

std::wstring OwnFile() {
    wchar_t szFile[MAX_PATH] = {};
    GetModuleFileNameW(nullptr, szFile, MAX_PATH);
    return szFile;
}

// version.rc gives this test program the version 12.34.5678.65535.
TEST(OwnVersion, IsTheFourNumbersOfTheFixedFileVersion) {
    EXPECT_EQ(FileVersionOf(OwnFile()), L"12.34.5678.65535");
}

TEST(OwnVersion, IsEmptyForAFileWithoutOne) {
    EXPECT_EQ(FileVersionOf(L"C:\\no such file.exe"), L"");
    EXPECT_EQ(FileVersionOf(L""), L"");
}

TEST(OwnVersion, IsLoggedWithTheProgramsFile) {
    char szFile[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, szFile, sizeof(szFile));
    const LogCapture Log;
    LogOwnVersion();
    EXPECT_THAT(Log.Lines(), testing::ElementsAre(std::string("[WinMain] ") + szFile + " v12.34.5678.65535"));
    EXPECT_THAT(Log.WholeLines(), testing::ElementsAre(testing::HasSubstr("<INFO :")));
}

}  // namespace
}  // namespace crashvane
