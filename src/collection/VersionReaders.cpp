#include "collection/VersionReaders.h"

#include "collection/ProgramFolder.h"
#include "collection/ToldCheck.h"
#include "util/Files.h"
#include "util/Paths.h"
#include "util/Profile.h"

namespace crashvane {

namespace {

// The part behind the dot has one byte less than any other value.
constexpr std::size_t MaxMinorVersion = 1022;

}  // namespace

std::string PakSuffix(const char* pszPakFolder) {
    return IsFolder(CombinePath(CurrentFolder(), pszPakFolder)) ? "_PAK" : "_SVN";
}

int CheckVersionPath(const std::string& strFunction, const std::string& strVersionCfg) {
    int nResult = 0;

    ZTLOG_PROCESS_ERROR_IN(strFunction, !strVersionCfg.empty());

    nResult = 1;
Exit0:
    return nResult;
}

int CheckVersionFile(const std::string& strFunction, const std::string& strVersionCfg) {
    int nResult = 0;
    int nRetCode = 0;

    if (!CheckVersionPath(strFunction, strVersionCfg)) {
        goto Exit0;
    }
    nRetCode = FileExists(strVersionCfg);
    ZTLOG_PROCESS_ERROR_IN(strFunction, nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

std::string ReadVersionEx(const std::string& strFunction, const char* pszKey) {
    const std::string strVersionCfg = BesideProgram("version.cfg");

    if (!CheckVersionFile(strFunction, strVersionCfg)) {
        return std::string();
    }
    return ReadProfileText(strVersionCfg, "Version", pszKey);
}

int ReadVersion(const std::string& strFunction, Product& Product) {
    const std::string strVersionCfg = BesideProgram("version.cfg");

    if (!CheckVersionPath(strFunction, strVersionCfg)) {
        return 0;
    }
    if (FileExists(strVersionCfg)) {
        Product.ProductVersion = ReadProfileText(strVersionCfg, "Version", "version");
    }
    return 1;
}

std::string ReadDottedVersion(const std::string& strFile, const char* pszSection, const char* pszMinorKey) {
    const std::string strMajor = ReadProfileText(strFile, pszSection, "MajorVersion");

    return strMajor + "." + ReadProfileText(strFile, pszSection, pszMinorKey).substr(0, MaxMinorVersion);
}

}  // namespace crashvane
