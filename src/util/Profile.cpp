#include "util/Profile.h"

#include <windows.h>

namespace crashvane {

std::string ReadProfileText(const std::string& strFile, const char* pszSection, const char* pszKey,
                            const char* pszDefault) {
    char szValue[1024] = {};
    GetPrivateProfileStringA(pszSection, pszKey, pszDefault, szValue, sizeof(szValue), strFile.c_str());
    szValue[sizeof(szValue) - 1] = '\0';
    return szValue;
}

int ReadProfileNumber(const std::string& strFile, const char* pszSection, const char* pszKey, int nDefault) {
    return static_cast<int>(GetPrivateProfileIntA(pszSection, pszKey, nDefault, strFile.c_str()));
}

}  // namespace crashvane
