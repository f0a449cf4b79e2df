#include "driver/DelayLoad.h"

#include <gtest/gtest.h>
#include <windows.h>
#include <wininet.h>

// Out of a DLL that is nowhere (missing.def).
extern "C" void* NoSuchFunction(const char* pszText, int nNumber, void* pMore, void* pYetMore, int nLast);
extern "C" int NoSuchFunctionEither();

namespace crashvane {
namespace {

TEST(DelayLoad, MakesEveryCallFailWhenTheLibraryIsMissing) {
    GuardDelayedCalls();
    int nSomething = 0;
    SetLastError(0);
    EXPECT_EQ(NoSuchFunction("text", 7, &nSomething, &nSomething, 9), nullptr);
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_MOD_NOT_FOUND));
    // The second call of one function goes past the loading.
    EXPECT_EQ(NoSuchFunction("text", 7, &nSomething, &nSomething, 9), nullptr);
    EXPECT_EQ(NoSuchFunctionEither(), 0);
}

TEST(DelayLoad, LoadsTheSystemsLibraryOnTheFirstCall) {
    GuardDelayedCalls();
    EXPECT_EQ(GetModuleHandleA("wininet.dll"), nullptr);
    EXPECT_FALSE(InternetCloseHandle(nullptr));
    EXPECT_EQ(GetLastError(), static_cast<DWORD>(ERROR_INVALID_HANDLE));
    char szFile[MAX_PATH] = {};
    char szSystem[MAX_PATH] = {};
    GetModuleFileNameA(GetModuleHandleA("wininet.dll"), szFile, sizeof(szFile));
    GetSystemDirectoryA(szSystem, sizeof(szSystem));
    EXPECT_STRCASEEQ(szFile, (std::string(szSystem) + "\\wininet.dll").c_str());
}

}  // namespace
}  // namespace crashvane
