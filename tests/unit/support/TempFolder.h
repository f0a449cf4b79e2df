// A folder of the test's own below the current one, gone with everything in it when the test ends.
#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>

namespace crashvane::test {

class TempFolder {
  public:
    TempFolder() {
        static int nCount = 0;
        m_Path = std::filesystem::current_path() /
                 ("temp_" + std::to_string(GetCurrentProcessId()) + "_" + std::to_string(++nCount));
        std::filesystem::create_directories(m_Path);
    }
    ~TempFolder() {
        std::error_code Ignored;
        std::filesystem::remove_all(m_Path, Ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    [[nodiscard]] std::string Path() const { return m_Path.string(); }
    [[nodiscard]] std::string Path(const std::string& strName) const { return (m_Path / strName).string(); }

    // Writes a file, making its folders.
    std::string Write(const std::string& strName, const std::string& strBytes) const {
        const std::filesystem::path File = m_Path / strName;
        std::filesystem::create_directories(File.parent_path());
        std::ofstream(File, std::ios::binary) << strBytes;
        return File.string();
    }
    std::string MakeFolder(const std::string& strName) const {
        std::filesystem::create_directories(m_Path / strName);
        return (m_Path / strName).string();
    }
    [[nodiscard]] static std::string Read(const std::string& strPath) {
        std::ifstream File(strPath, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(File), std::istreambuf_iterator<char>());
    }

  private:
    std::filesystem::path m_Path;
};

// The current folder is another one for a while.
class CurrentFolderIs {
  public:
    explicit CurrentFolderIs(const std::string& strFolder) : m_Before(std::filesystem::current_path()) {
        std::filesystem::current_path(strFolder);
    }
    ~CurrentFolderIs() { std::filesystem::current_path(m_Before); }
    CurrentFolderIs(const CurrentFolderIs&) = delete;
    CurrentFolderIs& operator=(const CurrentFolderIs&) = delete;

  private:
    std::filesystem::path m_Before;
};

}  // namespace crashvane::test
