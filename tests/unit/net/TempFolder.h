// A folder of a test's own below the system's temporary one, removed at the end.
#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <system_error>

namespace crashvane {

class TempFolder {
  public:
    TempFolder() {
        static unsigned s_uCount = 0;
        char szTemp[MAX_PATH + 1] = {};
        GetTempPathA(static_cast<DWORD>(sizeof(szTemp)), szTemp);
        m_strPath = std::string(szTemp) + "crashvane_net_" + std::to_string(GetCurrentProcessId()) + "_" +
                    std::to_string(s_uCount++);
        std::filesystem::create_directories(m_strPath);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code Ignored;
        std::filesystem::remove_all(m_strPath, Ignored);
    }

    [[nodiscard]] const std::string& Path() const { return m_strPath; }
    [[nodiscard]] std::string Path(const std::string& strName) const { return m_strPath + "\\" + strName; }

    // Writes a file; its path.
    std::string Write(const std::string& strName, const std::string& strBytes) const {
        std::ofstream(Path(strName), std::ios::binary) << strBytes;
        return Path(strName);
    }

  private:
    std::string m_strPath;
};

// ASCII only.
inline std::wstring Wide(const std::string& strText) {
    return std::wstring(strText.begin(), strText.end());
}

}  // namespace crashvane
