#include "driver/Hardening.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "driver/SystemLibrary.h"

namespace crashvane {
namespace {

// Each of these ends a process of its own, since the settings are the process's.
TEST(HardeningDeathTest, EndsWithOneAndNoBoxAfterAnUncaughtException) {
    EXPECT_EXIT(
        {
            HardenProcess();
            std::terminate();
        },
        testing::ExitedWithCode(1), "");
}

TEST(HardeningDeathTest, EndsWithOneAndNoBoxAfterAFault) {
    EXPECT_EXIT(
        {
            HardenProcess();
            RaiseException(EXCEPTION_ACCESS_VIOLATION, EXCEPTION_NONCONTINUABLE, 0, nullptr);
        },
        testing::ExitedWithCode(1), "");
}

TEST(Hardening, LeavesTheProcesssOwnErrorModeForTheProgramsItStarts) {
    EXPECT_EXIT(
        {
            const UINT uBefore = GetErrorMode();
            HardenProcess();
            TerminateProcess(GetCurrentProcess(), GetErrorMode() == uBefore ? 0 : 2);
        },
        testing::ExitedWithCode(0), "");
}

TEST(SystemLibrary, IsFoundInTheSystemsFolder) {
    const LibraryHandle hLibrary = LoadSystemLibrary(L"version.dll");
    ASSERT_TRUE(hLibrary);
    EXPECT_NE(FunctionOf<FARPROC>(hLibrary.Get(), "VerQueryValueW"), nullptr);
    EXPECT_EQ(FunctionOf<FARPROC>(hLibrary.Get(), "NoSuchFunction"), nullptr);
}

TEST(SystemLibrary, IsNullWhenTheSystemHasNone) {
    EXPECT_FALSE(LoadSystemLibrary(L"no_such_library.dll"));
    EXPECT_EQ(FunctionOf<FARPROC>(nullptr, "VerQueryValueW"), nullptr);
}

}  // namespace
}  // namespace crashvane
