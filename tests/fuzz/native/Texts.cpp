// Conversions between narrow and wide texts.
#include <string>

#include "native/World.h"

namespace {

constexpr char32_t Replacement = 0xFFFD;

bool IsHigh(char32_t cUnit) {
    return cUnit >= 0xD800 && cUnit < 0xDC00;
}
bool IsLow(char32_t cUnit) {
    return cUnit >= 0xDC00 && cUnit < 0xE000;
}

void AppendUtf8(std::string& strText, char32_t cPoint) {
    const auto Append = [&](char32_t cByte) { strText += static_cast<char>(cByte); };
    if (cPoint < 0x80) {
        Append(cPoint);
    } else if (cPoint < 0x800) {
        Append(0xC0 | cPoint >> 6);
        Append(0x80 | (cPoint & 0x3F));
    } else if (cPoint < 0x10000) {
        Append(0xE0 | cPoint >> 12);
        Append(0x80 | (cPoint >> 6 & 0x3F));
        Append(0x80 | (cPoint & 0x3F));
    } else {
        Append(0xF0 | cPoint >> 18);
        Append(0x80 | (cPoint >> 12 & 0x3F));
        Append(0x80 | (cPoint >> 6 & 0x3F));
        Append(0x80 | (cPoint & 0x3F));
    }
}

std::string ToUtf8(const std::wstring& strWide) {
    std::string strUtf8;
    for (std::size_t uAt = 0; uAt < strWide.size(); ++uAt) {
        const auto cUnit = static_cast<char32_t>(strWide[uAt]);
        const char32_t cNext = uAt + 1 < strWide.size() ? static_cast<char32_t>(strWide[uAt + 1]) : 0;
        if (IsHigh(cUnit) && IsLow(cNext)) {
            AppendUtf8(strUtf8, 0x10000 + ((cUnit - 0xD800) << 10) + (cNext - 0xDC00));
            ++uAt;
        } else {
            AppendUtf8(strUtf8, IsHigh(cUnit) || IsLow(cUnit) ? Replacement : cUnit);
        }
    }
    return strUtf8;
}

// The code point that begins at uAt and its length; a byte that begins none is a replacement character of length 1.
char32_t PointAt(const std::string& strUtf8, std::size_t uAt, std::size_t& uLength) {
    static constexpr char32_t Smallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const auto cFirst = static_cast<unsigned char>(strUtf8[uAt]);
    const std::size_t uWanted = cFirst < 0x80 ? 1 : cFirst >= 0xF0 ? 4 : cFirst >= 0xE0 ? 3 : cFirst >= 0xC0 ? 2 : 0;
    char32_t cPoint = uWanted == 1 ? cFirst : uWanted == 0 ? 0 : cFirst & (0x7F >> uWanted);
    uLength = 1;
    if (uWanted == 1) {
        return cPoint;
    }
    if (uWanted == 0 || cFirst >= 0xF8 || uAt + uWanted > strUtf8.size()) {
        return Replacement;
    }
    for (std::size_t uByte = 1; uByte < uWanted; ++uByte) {
        const auto cByte = static_cast<unsigned char>(strUtf8[uAt + uByte]);
        if ((cByte & 0xC0) != 0x80) {
            return Replacement;
        }
        cPoint = cPoint << 6 | (cByte & 0x3F);
    }
    if (cPoint < Smallest[uWanted] || cPoint > 0x10FFFF || IsHigh(cPoint) || IsLow(cPoint)) {
        return Replacement;
    }
    uLength = uWanted;
    return cPoint;
}

std::wstring FromUtf8(const std::string& strUtf8) {
    std::wstring strWide;
    for (std::size_t uAt = 0; uAt < strUtf8.size();) {
        std::size_t uLength = 0;
        const char32_t cPoint = PointAt(strUtf8, uAt, uLength);
        uAt += uLength;
        if (cPoint < 0x10000) {
            strWide += static_cast<wchar_t>(cPoint);
        } else {
            strWide += static_cast<wchar_t>(0xD800 + ((cPoint - 0x10000) >> 10));
            strWide += static_cast<wchar_t>(0xDC00 + ((cPoint - 0x10000) & 0x3FF));
        }
    }
    return strWide;
}

// The whole result's length when no room is given; 0 when the room is too small.
template <typename Text, typename Char>
int Deliver(const Text& strResult, Char* pszRoom, int nRoom) {
    const int nLength = static_cast<int>(strResult.size());
    if (nRoom == 0) {
        return nLength;
    }
    if (nLength > nRoom) {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    strResult.copy(pszRoom, strResult.size());
    return nLength;
}

}  // namespace

int WideCharToMultiByte(UINT uCodePage, DWORD, const wchar_t* pszWide, int nWide, char* pszNarrow, int nNarrow,
                        const char*, BOOL*) {
    const std::size_t uWide = nWide < 0 ? std::wcslen(pszWide) + 1 : static_cast<std::size_t>(nWide);
    const std::wstring strWide(pszWide, uWide);
    std::string strNarrow;
    if (uCodePage == CP_UTF8) {
        strNarrow = ToUtf8(strWide);
    } else {
        for (const wchar_t cUnit : strWide) {
            strNarrow += cUnit < 0x100 ? static_cast<char>(cUnit) : '?';
        }
    }
    return Deliver(strNarrow, pszNarrow, nNarrow);
}

int MultiByteToWideChar(UINT uCodePage, DWORD, const char* pszNarrow, int nNarrow, wchar_t* pszWide, int nWide) {
    const std::size_t uNarrow =
        nNarrow < 0 ? std::char_traits<char>::length(pszNarrow) + 1 : static_cast<std::size_t>(nNarrow);
    const std::string strNarrow(pszNarrow, uNarrow);
    std::wstring strWide;
    if (uCodePage == CP_UTF8) {
        strWide = FromUtf8(strNarrow);
    } else {
        for (const char cByte : strNarrow) {
            strWide += static_cast<wchar_t>(static_cast<unsigned char>(cByte));
        }
    }
    return Deliver(strWide, pszWide, nWide);
}

BOOL IsDBCSLeadByteEx(UINT uCodePage, BYTE cByte) {
    const UINT uActual = uCodePage == CP_ACP ? native::TheWorld().uCodePage : uCodePage;
    return uActual == 936 && cByte >= 0x81 && cByte <= 0xFE ? TRUE : FALSE;
}

BOOL IsDBCSLeadByte(BYTE cByte) {
    return IsDBCSLeadByteEx(CP_ACP, cByte);
}
