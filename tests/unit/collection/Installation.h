// A product's installation around the test program: files in its folder and one folder up, gone when the test ends.
//
// Also holds a current folder of the test's own, since "Pak" is looked for there. One at a time.
#pragma once

#include <windows.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <regex>
#include <string>
#include <vector>

#include "collection/Collection.h"
#include "support/LogCapture.h"
#include "support/TempFolder.h"
#include "util/Text.h"

namespace crashvane::test {

// The moment of the crash in every test: 30 August 2019, 01:53:20 UTC.
constexpr long long CrashTime = 1567130000;

// The log's lines with "at line 12 in" as "in".
inline std::vector<std::string> WithoutLineNumbers(std::vector<std::string> Lines) {
    static const std::regex LineNumber(" at line [0-9]+ in ");
    for (std::string& strLine : Lines) {
        strLine = std::regex_replace(strLine, LineNumber, " in ");
    }
    return Lines;
}

inline std::string ProcessError(const std::string& strCondition, const std::string& strFunction) {
    return "ZTLOG_PROCESS_ERROR(" + strCondition + ") in " + strFunction;
}

inline std::string CheckError(const std::string& strCondition, const std::string& strFunction) {
    return "ZTLOG_CHECK_ERROR(" + strCondition + ") in " + strFunction;
}

// Says when a file was last written, in seconds since 1970; of a whole second by default its very beginning.
inline void SetWritten(const std::string& strPath, long long nSeconds, long long nFurtherTicks = 0) {
    ULARGE_INTEGER Ticks = {};
    Ticks.QuadPart = static_cast<ULONGLONG>((nSeconds + 11644473600LL) * 10000000LL + nFurtherTicks);
    const FILETIME Time = {Ticks.LowPart, Ticks.HighPart};
    const HANDLE hFile = CreateFileA(strPath.c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(hFile, INVALID_HANDLE_VALUE) << strPath;
    EXPECT_TRUE(SetFileTime(hFile, nullptr, nullptr, &Time));
    CloseHandle(hFile);
}

// A file that nobody else can open, or only for what is shared (FILE_SHARE_READ).
class Locked {
  public:
    explicit Locked(const std::string& strPath, DWORD dwShared = 0)
        : m_hFile(CreateFileA(strPath.c_str(), GENERIC_READ, dwShared, nullptr, OPEN_EXISTING, 0, nullptr)) {
        EXPECT_NE(m_hFile, INVALID_HANDLE_VALUE) << strPath;
    }
    ~Locked() { CloseHandle(m_hFile); }
    Locked(const Locked&) = delete;
    Locked& operator=(const Locked&) = delete;

  private:
    HANDLE m_hFile;
};

// The test program's folder without a separator at its end, found without the code under test.
inline std::string ProgramFolder() {
    char szFile[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, szFile, MAX_PATH);
    const std::string strFile = szFile;
    return strFile.substr(0, strFile.rfind('\\'));
}

// The standard library takes narrow paths for UTF-8; ours are in the ANSI code page.
inline std::filesystem::path OnDisk(const std::string& strPath) {
    return ToUtf16(strPath);
}

class Installation {
  public:
    Installation() : m_InCurrent(m_Current.Path()) {}

    ~Installation() {
        for (const std::string& strMade : m_Made) {
            std::error_code Ignored;
            std::filesystem::remove_all(OnDisk(strMade), Ignored);
        }
    }

    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;

    // Where a name relative to the program's folder lies; "..\" stands for one folder up.
    [[nodiscard]] static std::string PathOf(const std::string& strName) {
        std::string strFolder = ProgramFolder();
        if (strName.starts_with("..\\")) {
            return strFolder.substr(0, strFolder.rfind('\\')) + strName.substr(2);
        }
        return strFolder + "\\" + strName;
    }

    // Writes a file of the installation, making its folders.
    std::string Write(const std::string& strName, const std::string& strBytes) {
        const std::string strPath = Make(strName);
        std::filesystem::create_directories(OnDisk(strPath).parent_path());
        std::ofstream(OnDisk(strPath), std::ios::binary) << strBytes;
        ForgetProfile(strPath);
        return strPath;
    }

    std::string WriteAt(const std::string& strName, const std::string& strBytes, long long nWritten) {
        std::string strPath = Write(strName, strBytes);
        SetWritten(strPath, nWritten);
        ForgetProfile(strPath);
        return strPath;
    }

    std::string MakeFolder(const std::string& strName) {
        std::string strPath = Make(strName);
        std::filesystem::create_directories(OnDisk(strPath));
        return strPath;
    }

    // The current folder of the test; what lies there goes with it.
    [[nodiscard]] const TempFolder& Current() const { return m_Current; }

  private:
    // A file rewritten under the same time may still be the system's cached one.
    static void ForgetProfile(const std::string& strPath) {
        WritePrivateProfileStringA(nullptr, nullptr, nullptr, strPath.c_str());
    }

    // Remembers the topmost folder or file that the name makes, and takes away what an interrupted run left of it.
    std::string Make(const std::string& strName) {
        const std::size_t uBegin = strName.starts_with("..\\") ? 3 : 0;
        const std::string strTop = PathOf(strName.substr(0, strName.find('\\', uBegin)));
        if (std::find(m_Made.begin(), m_Made.end(), strTop) == m_Made.end()) {
            std::filesystem::remove_all(OnDisk(strTop));
            m_Made.push_back(strTop);
        }
        return PathOf(strName);
    }

    std::vector<std::string> m_Made;
    TempFolder m_Current;
    CurrentFolderIs m_InCurrent;
};

// An installation, the log's lines, and a collector of one class.
class CollectorTest : public testing::Test {
  protected:
    std::vector<std::string> Checks() const { return WithoutLineNumbers(m_Log.Lines()); }

    Installation m_Installation;
    LogCapture m_Log;
};

// A collector whose report says what every report says: the executable and the moment.
template <typename Class>
std::unique_ptr<Class> MakeCollector(const std::string& strExecutable = "some.exe") {
    auto pCollector = std::make_unique<Class>();
    pCollector->m_CrashReporter.Product.ProductName = strExecutable;
    pCollector->m_CrashReporter.Product.ProductVersion = "version of the report";
    pCollector->m_CrashReporter.Product.ProductVersionEx = "version ex of the report";
    pCollector->m_CrashReporter.Exception.ExceptionTime = CrashTime;
    return pCollector;
}

// An executable's name in the ways in which players' machines spell it.
inline std::vector<std::string> Spellings(const std::string& strLower) {
    std::string strUpper = strLower;
    std::string strMixed = strLower;
    for (std::size_t uAt = 0; uAt < strLower.size(); ++uAt) {
        const char cAt = strLower[uAt];
        strUpper[uAt] = cAt >= 'a' && cAt <= 'z' ? static_cast<char>(cAt - 'a' + 'A') : cAt;
        strMixed[uAt] = uAt % 2 == 0 ? strUpper[uAt] : cAt;
    }
    return {strLower, strUpper, strMixed};
}

}  // namespace crashvane::test
