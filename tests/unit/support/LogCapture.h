// What the code under test wrote to the log, line by line, while an object of this class lives.
//
// One at a time: the log is process-wide. The lines go to a file in a folder of its own below the system's temporary
// one, which is removed at the end; from then on the log writes nothing.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <system_error>
#include <vector>

#include "log/Log.h"

namespace crashvane {

class LogCapture {
  public:
    LogCapture() {
        static unsigned s_uCount = 0;
        char szTemp[MAX_PATH + 1] = {};
        GetTempPathA(static_cast<DWORD>(sizeof(szTemp)), szTemp);
        m_strFolder = std::string(szTemp) + "crashvane_log_" + std::to_string(GetCurrentProcessId()) + "_" +
                      std::to_string(s_uCount++);
        LogSettings Settings = {};
        std::snprintf(Settings.szRoot, sizeof(Settings.szRoot), "%s", m_strFolder.c_str());
        std::strcpy(Settings.szIdentity, "Captured");
        Settings.uFlags = LogToFile;
        Settings.nMaxLines = (std::numeric_limits<std::int32_t>::max)();
        Log::Start(Settings);
    }

    LogCapture(const LogCapture&) = delete;
    LogCapture& operator=(const LogCapture&) = delete;

    ~LogCapture() {
        Log::Close();
        Log::Start(LogSettings{});
        std::error_code Ignored;
        std::filesystem::remove_all(m_strFolder, Ignored);
    }

    // Every line since the beginning, without its prefix (time, level, thread) and without its line feed.
    [[nodiscard]] std::vector<std::string> Lines() const {
        std::vector<std::string> Result = WholeLines();
        for (std::string& strLine : Result) {
            const std::string::size_type uAt = strLine.find(">: ");
            strLine.erase(0, uAt == std::string::npos ? 0 : uAt + 3);
        }
        return Result;
    }

    // The same as they stand in the file: "20190830-140509<INFO :0000000000001A2C>: ...".
    [[nodiscard]] std::vector<std::string> WholeLines() const {
        std::vector<std::filesystem::path> Files;
        std::error_code NoFolderYet;
        for (const auto& Entry : std::filesystem::recursive_directory_iterator(m_strFolder, NoFolderYet)) {
            if (Entry.is_regular_file()) {
                Files.push_back(Entry.path());
            }
        }
        std::sort(Files.begin(), Files.end());
        std::vector<std::string> Result;
        for (const auto& File : Files) {
            std::ifstream Stream(File, std::ios::binary);
            for (std::string strLine; std::getline(Stream, strLine);) {
                Result.push_back(strLine);
            }
        }
        return Result;
    }

  private:
    std::string m_strFolder;
};

}  // namespace crashvane
