#include "log/Log.h"

#include <gmock/gmock.h>
#include <windows.h>

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <thread>

#include "support/TempFolder.h"

namespace crashvane {
namespace {

using test::CurrentFolderIs;
using test::TempFolder;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::int64_t AUGUST_30_2019_140509 = 1567173909;
std::int64_t g_nNow = AUGUST_30_2019_140509;

LogSettings Settings(const char* pszRoot, const char* pszIdentity, std::uint32_t uFlags = LogToFile,
                     std::int32_t nMaxLines = 160000) {
    LogSettings Result = {};
    std::snprintf(Result.szRoot, sizeof(Result.szRoot), "%s", pszRoot);
    std::snprintf(Result.szIdentity, sizeof(Result.szIdentity), "%s", pszIdentity);
    Result.uFlags = uFlags;
    Result.nMaxLines = nMaxLines;
    return Result;
}

// A descriptor's output goes to a file while this lives.
class Redirected {
  public:
    Redirected(int nFile, const std::string& strFile) : m_nFile(nFile), m_nBefore(_dup(nFile)) {
        const int nNew = _open(strFile.c_str(), _O_WRONLY | _O_CREAT | _O_TRUNC | _O_BINARY, 0600);
        _dup2(nNew, nFile);
        _close(nNew);
    }
    ~Redirected() {
        _dup2(m_nBefore, m_nFile);
        _close(m_nBefore);
    }
    Redirected(const Redirected&) = delete;
    Redirected& operator=(const Redirected&) = delete;

  private:
    int m_nFile;
    int m_nBefore;
};

// Each test logs into a folder of its own at 14:05:09 on 30 August 2019.
class LogTest : public testing::Test {
  protected:
    LogTest() : m_There(m_Folder.Path()) {
        g_nNow = AUGUST_30_2019_140509;
        Log::SetClock([] { return g_nNow; });
    }
    ~LogTest() override {
        Log::Close();
        Log::SetClock(nullptr);
        Log::Start(LogSettings{});
    }
    [[nodiscard]] std::string Bytes(const std::string& strName = DAY_FILE) const {
        return TempFolder::Read(m_Folder.Path(strName));
    }

    static constexpr const char* DAY_FILE = "logs\\Crashvane\\2019_08_30\\Crashvane_2019_08_30_14_05_09.log";
    TempFolder m_Folder;
    CurrentFolderIs m_There;
};

std::string Prefix(const char* pszWord) {
    char szThread[32] = {};
    _snprintf(szThread, sizeof(szThread), "%016I64X", static_cast<unsigned long long>(GetCurrentThreadId()));
    return std::string("20190830-140509<") + pszWord + ":" + szThread + ">: ";
}

TEST_F(LogTest, NamesFolderAndFileByDayAndSecond) {
    ASSERT_TRUE(Log::Start(Settings("logs", "Crashvane")));
    EXPECT_FALSE(std::filesystem::exists(m_Folder.Path("logs")));
    EXPECT_TRUE(Log::Write(LogInfo, "hello %d", 7));
    EXPECT_EQ(Bytes(), Prefix("INFO ") + "hello 7\n");
}

TEST_F(LogTest, BeginsALineWithTimeLevelAndThread) {
    Log::Start(Settings("logs", "Crashvane"));
    const char* Words[] = {"RESR0", "RESR1", "RESR2", "ERROR", "WARN ", "RESR3", "INFO ", "DEBUG"};
    std::string strExpected;
    for (int nLevel = 0; nLevel < 8; ++nLevel) {
        Log::Write(nLevel + 8 * nLevel, "x");
        strExpected += Prefix(Words[nLevel]) + "x\n";
    }
    EXPECT_EQ(Bytes(), strExpected);
}

TEST_F(LogTest, PrintsWithTheRuntimesFormats) {
    Log::Start(Settings("logs", "Crashvane"));
    Log::Write(LogInfo, "%I64u %p", 18446744073709551615ULL, reinterpret_cast<void*>(std::uintptr_t{0xAB}));
    EXPECT_EQ(Bytes(), Prefix("INFO ") + "18446744073709551615 00000000000000AB\n");
}

TEST_F(LogTest, CutsALongLineAt1023Bytes) {
    Log::Start(Settings("logs", "Crashvane"));
    Log::Write(LogInfo, "%s", std::string(2000, 'a').c_str());
    const std::string strPrefix = Prefix("INFO ");
    EXPECT_EQ(Bytes(), strPrefix + std::string(1022 - strPrefix.size(), 'a') + "\n");
    EXPECT_EQ(Bytes().size(), 1023u);
}

TEST_F(LogTest, PutsTheLineFeedInPlaceOfTheLastOf1023Bytes) {
    Log::Start(Settings("logs", "Crashvane"));
    const std::size_t uRoom = 1023 - Prefix("INFO ").size();
    Log::Write(LogInfo, "%s", (std::string(uRoom - 1, 'a') + "z").c_str());
    EXPECT_EQ(Bytes(), Prefix("INFO ") + std::string(uRoom - 1, 'a') + "\n");
}

TEST_F(LogTest, AddsTheLineFeedBehind1022Bytes) {
    Log::Start(Settings("logs", "Crashvane"));
    const std::size_t uRoom = 1023 - Prefix("INFO ").size();
    Log::Write(LogInfo, "%s", std::string(uRoom - 1, 'a').c_str());
    EXPECT_EQ(Bytes(), Prefix("INFO ") + std::string(uRoom - 1, 'a') + "\n");
}

TEST_F(LogTest, AddsNoSecondLineEnd) {
    Log::Start(Settings("logs", "Crashvane"));
    Log::Write(LogInfo, "feed\n");
    Log::Write(LogInfo, "return\r");
    EXPECT_EQ(Bytes(), Prefix("INFO ") + "feed\n" + Prefix("INFO ") + "return\r");
}

TEST_F(LogTest, TakesNoArgumentForAFormat) {
    Log::Start(Settings("logs", "Crashvane"));
    Log::Write(LogInfo, "%s", "%s%n%d");
    EXPECT_EQ(Bytes(), Prefix("INFO ") + "%s%n%d\n");
}

TEST_F(LogTest, OpensANewFileAfterTheLastLine) {
    Log::Start(Settings("logs", "Crashvane", LogToFile, 160000));
    for (int nLine = 0; nLine < 160000; ++nLine) {
        Log::Write(LogInfo, "x");
    }
    g_nNow += 1;
    Log::Write(LogInfo, "next");
    const std::string strLine = Prefix("INFO ") + "x\n";
    EXPECT_EQ(Bytes().size(), 160000 * strLine.size());
    EXPECT_THAT(Bytes("logs\\Crashvane\\2019_08_30\\Crashvane_2019_08_30_14_05_10.log"), HasSubstr(">: next\n"));
}

TEST_F(LogTest, OpensANewFolderOnANewDay) {
    Log::Start(Settings("logs", "Crashvane"));
    Log::Write(LogInfo, "today");
    g_nNow += 24 * 3600;
    Log::Write(LogInfo, "tomorrow");
    EXPECT_EQ(Bytes(), Prefix("INFO ") + "today\n");
    EXPECT_THAT(Bytes("logs\\Crashvane\\2019_08_31\\Crashvane_2019_08_31_14_05_09.log"), HasSubstr(">: tomorrow\n"));
}

TEST_F(LogTest, OpensANewFileWhenTheSameDayOfAnotherMonthComes) {
    Log::Start(Settings("logs", "Crashvane"));
    Log::Write(LogInfo, "august");
    g_nNow += 31 * 24 * 3600;
    Log::Write(LogInfo, "september");
    EXPECT_THAT(Bytes("logs\\Crashvane\\2019_09_30\\Crashvane_2019_09_30_14_05_09.log"), HasSubstr("september"));
}

TEST_F(LogTest, NormalisesRootAndIdentity) {
    for (const char* pszRoot : {"logs", "logs\\", "logs/"}) {
        for (const char* pszIdentity : {"Crashvane", "Crashvane/", "Crashvane\\"}) {
            ASSERT_TRUE(Log::Start(Settings(pszRoot, pszIdentity)));
            ASSERT_TRUE(Log::Write(LogInfo, "x"));
            EXPECT_EQ(Bytes(), Prefix("INFO ") + "x\n") << pszRoot << " " << pszIdentity;
            Log::Close();
            std::filesystem::remove_all(m_Folder.Path("logs"));
        }
    }
}

TEST_F(LogTest, StartsOnlyWhenTheFolderFits) {
    const std::string strLonger(1012, 'r');
    EXPECT_TRUE(Log::Start(Settings(strLonger.substr(1).c_str(), "Crashvane")));
    EXPECT_FALSE(Log::Start(Settings(strLonger.c_str(), "Crashvane")));
    EXPECT_FALSE(Log::Start(Settings(std::string(1023, 'r').c_str(), "Crashvane")));
}

TEST_F(LogTest, StartsWithoutAFolderWhenNoFileIsWanted) {
    EXPECT_TRUE(Log::Start(Settings("", "", 0)));
    EXPECT_TRUE(Log::Write(LogInfo, "x"));
    EXPECT_FALSE(std::filesystem::exists(m_Folder.Path("logs")));
}

TEST_F(LogTest, NeedsRootAndIdentityForAFile) {
    EXPECT_FALSE(Log::Start(Settings("", "Crashvane")));
    EXPECT_FALSE(Log::Start(Settings("logs", "")));
}

TEST_F(LogTest, EchoesAndFailsWhenTheFolderCannotBeMade) {
    m_Folder.Write("logs", "a file in the folder's place");
    ASSERT_TRUE(Log::Start(Settings("logs", "Crashvane", LogToFile | LogToStandardError)));
    bool bWritten = true;
    {
        const Redirected Error(2, m_Folder.Path("stderr"));
        bWritten = Log::Write(LogInfo, "still said");
        std::fflush(stderr);
    }
    EXPECT_FALSE(bWritten);
    EXPECT_THAT(Bytes("stderr"), StartsWith(Prefix("INFO ") + "still said\n"));
    EXPECT_THAT(Bytes("stderr"), HasSubstr("ZTLog: ZT_mkdir(\"logs/Crashvane/\") failed = "));
}

TEST_F(LogTest, SaysWhyAFileCannotBeOpened) {
    m_Folder.MakeFolder(DAY_FILE);
    Log::Start(Settings("logs", "Crashvane"));
    bool bWritten = true;
    {
        const Redirected Error(2, m_Folder.Path("stderr"));
        bWritten = Log::Write(LogInfo, "x");
        std::fflush(stderr);
    }
    EXPECT_FALSE(bWritten);
    EXPECT_THAT(Bytes("stderr"),
                StartsWith("ZTLog: open(\"logs/Crashvane/2019_08_30/Crashvane_2019_08_30_14_05_09.log\") failed = "));
}

TEST_F(LogTest, EchoesToStandardOutput) {
    Log::Start(Settings("logs", "Crashvane", LogToStandardOutput));
    {
        const Redirected Output(1, m_Folder.Path("stdout"));
        EXPECT_TRUE(Log::Write(LogInfo, "heard"));
    }
    EXPECT_EQ(Bytes("stdout"), Prefix("INFO ") + "heard\n");
    EXPECT_FALSE(std::filesystem::exists(m_Folder.Path("logs")));
}

TEST_F(LogTest, LetsOthersReadAndWriteTheOpenFile) {
    Log::Start(Settings("logs", "Crashvane"));
    Log::Write(LogInfo, "x");
    const HANDLE hFile = CreateFileA(DAY_FILE, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                     nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(hFile, INVALID_HANDLE_VALUE);
    CloseHandle(hFile);
}

TEST_F(LogTest, KeepsLinesOfSeveralThreadsApart) {
    Log::Start(Settings("logs", "Crashvane"));
    std::vector<std::thread> Threads;
    for (char cThread = 'a'; cThread < 'e'; ++cThread) {
        Threads.emplace_back([cThread] {
            for (int nLine = 0; nLine < 500; ++nLine) {
                Log::Write(LogInfo, "%s", std::string(100, cThread).c_str());
            }
        });
    }
    for (std::thread& Thread : Threads) {
        Thread.join();
    }
    std::istringstream File(Bytes());
    int nLines = 0;
    for (std::string strLine; std::getline(File, strLine); ++nLines) {
        const std::string strText = strLine.substr(strLine.find(">: ") + 3);
        ASSERT_EQ(strText, std::string(100, strText.at(0)));
    }
    EXPECT_EQ(nLines, 2000);
}

TEST_F(LogTest, WritesNothingMoreOnceClosed) {
    Log::Start(Settings("logs", "Crashvane"));
    Log::Write(LogInfo, "before");
    Log::Close();
    EXPECT_TRUE(Log::Write(LogInfo, "after"));
    EXPECT_EQ(Bytes(), Prefix("INFO ") + "before\n");
}

TEST(PrintBounded, TerminatesAndTellsAnOverflow) {
    char szText[4] = {};
    EXPECT_EQ(Log::PrintBounded(szText, sizeof(szText), "%s", "abc"), 3);
    EXPECT_STREQ(szText, "abc");
    EXPECT_EQ(Log::PrintBounded(szText, sizeof(szText), "%s", "abcd"), -1);
    EXPECT_STREQ(szText, "abc");
}

}  // namespace
}  // namespace crashvane
