// UTF-8 and UTF-16 by the C library of this machine: the second opinion on conversions.
#pragma once

#include <iconv.h>

#include <string>

namespace fuzz {

namespace UnicodeDetail {

// False: the text is not valid in the encoding that it claims.
inline bool Convert(const char* pszTo, const char* pszFrom, std::string strText, std::string& strResult) {
    const iconv_t hConversion = iconv_open(pszTo, pszFrom);
    strResult.assign(strText.size() * 4 + 4, '\0');
    char* pFrom = strText.data();
    char* pTo = strResult.data();
    std::size_t uFrom = strText.size();
    std::size_t uTo = strResult.size();
    const bool bValid = iconv(hConversion, &pFrom, &uFrom, &pTo, &uTo) == 0 && uFrom == 0;
    iconv_close(hConversion);
    strResult.resize(strResult.size() - uTo);
    return bValid;
}

}  // namespace UnicodeDetail

// Characters of the wide text are UTF-16 code units.
inline bool Utf8Of(const std::wstring& strWide, std::string& strUtf8) {
    std::string strUnits;
    for (const wchar_t cUnit : strWide) {
        strUnits += static_cast<char>(cUnit & 0xFF);
        strUnits += static_cast<char>(cUnit >> 8 & 0xFF);
    }
    return UnicodeDetail::Convert("UTF-8", "UTF-16LE", strUnits, strUtf8);
}

inline bool Utf16Of(const std::string& strUtf8, std::wstring& strWide) {
    std::string strUnits;
    const bool bValid = UnicodeDetail::Convert("UTF-16LE", "UTF-8", strUtf8, strUnits);
    strWide.clear();
    for (std::size_t uAt = 0; uAt + 1 < strUnits.size(); uAt += 2) {
        strWide += static_cast<wchar_t>(static_cast<unsigned char>(strUnits[uAt]) |
                                        static_cast<unsigned char>(strUnits[uAt + 1]) << 8);
    }
    return bValid;
}

}  // namespace fuzz
