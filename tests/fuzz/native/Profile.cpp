// The reader of settings files: first section of the name, first key of the name, both in any case of letters; blanks
// around names and values do not count, one pair of quotes around a value is taken off, ";" begins a comment line.
#include <cstdlib>
#include <cstring>

#include "native/World.h"

namespace {

std::string Trimmed(const std::string& strText) {
    const std::size_t uBegin = strText.find_first_not_of(" \t\r\v\f");
    if (uBegin == std::string::npos) {
        return std::string();
    }
    return strText.substr(uBegin, strText.find_last_not_of(" \t\r\v\f") - uBegin + 1);
}

bool Equals(const std::string& strLeft, const std::string& strRight) {
    return strLeft.size() == strRight.size() && strncasecmp(strLeft.data(), strRight.data(), strLeft.size()) == 0;
}

std::string Unquoted(const std::string& strValue) {
    const bool bQuoted = strValue.size() > 1 && (strValue.front() == '"' || strValue.front() == '\'') &&
                         strValue.front() == strValue.back();
    return bQuoted ? strValue.substr(1, strValue.size() - 2) : strValue;
}

}  // namespace

namespace native {

bool FindSetting(const std::string& strFile, const std::string& strSection, const std::string& strKey,
                 std::string& strValue) {
    const File* pFile = FindFile(strFile);
    if (pFile == nullptr || pFile->bFolder) {
        return false;
    }
    bool bInside = false;
    std::size_t uAt = 0;
    while (uAt < pFile->strBytes.size()) {
        const std::size_t uEnd = std::min(pFile->strBytes.find('\n', uAt), pFile->strBytes.size());
        const std::string strLine = Trimmed(pFile->strBytes.substr(uAt, uEnd - uAt));
        uAt = uEnd + 1;
        if (!strLine.empty() && strLine[0] == '[') {
            if (bInside) {
                return false;
            }
            bInside = Equals(Trimmed(strLine.substr(1, strLine.find(']') - 1)), strSection);
            continue;
        }
        const std::size_t uEquals = strLine.find('=');
        if (bInside && !strLine.empty() && strLine[0] != ';' && uEquals != std::string::npos &&
            Equals(Trimmed(strLine.substr(0, uEquals)), strKey)) {
            // As a text of C it ends at its first zero.
            strValue = Unquoted(Trimmed(strLine.substr(uEquals + 1))).c_str();
            return true;
        }
    }
    return false;
}

}  // namespace native

DWORD GetPrivateProfileStringA(const char* pszSection, const char* pszKey, const char* pszDefault, char* pszValue,
                               DWORD dwSize, const char* pszFile) {
    std::string strValue;
    if (!native::FindSetting(pszFile, pszSection, pszKey, strValue)) {
        strValue = pszDefault;
    }
    strValue.resize(std::min<std::size_t>(strValue.size(), dwSize - 1));
    std::strcpy(pszValue, strValue.c_str());
    return static_cast<DWORD>(strValue.size());
}

UINT GetPrivateProfileIntA(const char* pszSection, const char* pszKey, int nDefault, const char* pszFile) {
    std::string strValue;
    if (!native::FindSetting(pszFile, pszSection, pszKey, strValue) || strValue.empty()) {
        return static_cast<UINT>(nDefault);
    }
    const bool bNegative = strValue[0] == '-';
    UINT uValue = 0;
    for (std::size_t uAt = bNegative ? 1 : 0; uAt < strValue.size() && strValue[uAt] >= '0' && strValue[uAt] <= '9';
         ++uAt) {
        uValue = uValue * 10 + static_cast<UINT>(strValue[uAt] - '0');
    }
    return bNegative ? 0 - uValue : uValue;
}
