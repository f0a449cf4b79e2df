#include "collection/BrennEditions.h"

#include <windows.h>

#include "collection/Editions.h"
#include "util/Text.h"

namespace crashvane {

std::string BrennVersionEx(const std::string& strExecutable, const std::string& strCodeName,
                           const std::string& strVersionEx, const std::string& strLineName) {
    static constexpr Edition Tools[] = {{"mpak_downloader.exe", "mpak_downloader"},
                                        {"brennbenchmarkx64.exe", "benchmark"},
                                        {"brennconsolex64.exe", "console"}};
    const bool bPakV4 = strCodeName == "pakv4";
    const std::string strPrefix = bPakV4 ? strCodeName + "_" : std::string();
    const std::string strLower = ToLower(strExecutable);

    if (bPakV4 && (strLower == "ztpk4_streamdownloaderx64.exe" || strLower == "ztpk4_streamdownloaderx64d.exe")) {
        return strPrefix + "streamdownloader";
    }
    if (strLower == "brennclient.exe") {
        return strPrefix + strVersionEx + strLineName;
    }
    return EditionOf(strExecutable, Tools, "");
}

int BrennImageId(const std::string& strLineName) {
    return strLineName == "zhkr" ? 151 : strLineName == "vivn" ? 156 : strLineName == "zhtw" ? 158 : BrennCommonImageId;
}

std::string FirstFolderBelow(const std::string& strFolder, const std::string& strPath) {
    const std::size_t uBegin = strFolder.size() + 1;

    for (std::size_t uAt = uBegin; uAt < strPath.size(); ++uAt) {
        if (strPath[uAt] == '\\') {
            return strPath.substr(uBegin, uAt - uBegin);
        }
        // The second byte of a double-byte character may look like a backslash.
        if (IsDBCSLeadByte(static_cast<BYTE>(strPath[uAt]))) {
            ++uAt;
        }
    }
    return std::string();
}

}  // namespace crashvane
