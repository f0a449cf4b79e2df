// Printing and scanning in the dialect of the C runtime of Windows.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <string>

#include "native/World.h"

namespace {

// The same format for the C library of this machine: %I64d is %lld, %p is 16 upper-case digits, %s of a wide format is
// wide. A long has 64 bits here and is printed so: the fuzzed code keeps 32-bit values in them.
template <typename Text>
Text Translated(const typename Text::value_type* pszFormat) {
    using Char = typename Text::value_type;
    Text strResult;
    for (const Char* pAt = pszFormat; *pAt != 0;) {
        strResult += *pAt;
        if (*pAt++ != '%') {
            continue;
        }
        while (*pAt == '-' || *pAt == '.' || (*pAt >= '0' && *pAt <= '9')) {
            strResult += *pAt++;
        }
        if (pAt[0] == 'I' && pAt[1] == '6' && pAt[2] == '4') {
            strResult.append(2, 'l');
            pAt += 3;
        }
        if (*pAt == 'p') {
            for (const char cByte : {'0', '1', '6', 'l', 'l', 'X'}) {
                strResult += static_cast<Char>(cByte);
            }
            ++pAt;
        } else {
            if (sizeof(Char) > 1 && *pAt == 's') {
                strResult += 'l';
            }
            if (*pAt != 0) {
                strResult += *pAt++;
            }
        }
    }
    return strResult;
}

std::string Printed(const char* pszFormat, std::va_list Arguments) {
    char* pszText = nullptr;
    const int nLength = vasprintf(&pszText, Translated<std::string>(pszFormat).c_str(), Arguments);
    if (nLength < 0) {
        std::abort();
    }
    std::string strText(pszText, static_cast<std::size_t>(nLength));
    std::free(pszText);
    return strText;
}

std::wstring Printed(const wchar_t* pszFormat, std::va_list Arguments) {
    constexpr std::size_t LongEnough = 4096;
    std::wstring strText(LongEnough, L'\0');
    const int nLength =
        std::vswprintf(strText.data(), strText.size(), Translated<std::wstring>(pszFormat).c_str(), Arguments);
    if (nLength < 0) {
        std::abort();
    }
    strText.resize(static_cast<std::size_t>(nLength));
    return strText;
}

// -1: the text did not fit, and what there was room for was written. No terminator without room for it.
template <typename Text>
int Bounded(typename Text::value_type* pszBuffer, std::size_t uCount, const Text& strText) {
    strText.copy(pszBuffer, std::min(uCount, strText.size()));
    if (strText.size() < uCount) {
        pszBuffer[strText.size()] = 0;
    }
    return strText.size() > uCount ? -1 : static_cast<int>(strText.size());
}

int DigitOf(char cByte, unsigned uBase) {
    const int nDigit = cByte >= '0' && cByte <= '9'   ? cByte - '0'
                       : cByte >= 'a' && cByte <= 'f' ? cByte - 'a' + 10
                       : cByte >= 'A' && cByte <= 'F' ? cByte - 'A' + 10
                                                      : 16;
    return nDigit < static_cast<int>(uBase) ? nDigit : -1;
}

bool IsBlank(char cByte) {
    return cByte == ' ' || (cByte >= '\t' && cByte <= '\r');
}

}  // namespace

int _vsnprintf(char* pszBuffer, std::size_t uCount, const char* pszFormat, std::va_list Arguments) {
    return Bounded(pszBuffer, uCount, Printed(pszFormat, Arguments));
}

int _snprintf(char* pszBuffer, std::size_t uCount, const char* pszFormat, ...) {
    std::va_list Arguments;
    va_start(Arguments, pszFormat);
    const int nLength = _vsnprintf(pszBuffer, uCount, pszFormat, Arguments);
    va_end(Arguments);
    return nLength;
}

int _vscprintf(const char* pszFormat, std::va_list Arguments) {
    return static_cast<int>(Printed(pszFormat, Arguments).size());
}

int _vsnwprintf(wchar_t* pszBuffer, std::size_t uCount, const wchar_t* pszFormat, std::va_list Arguments) {
    return Bounded(pszBuffer, uCount, Printed(pszFormat, Arguments));
}

int _snwprintf(wchar_t* pszBuffer, std::size_t uCount, const wchar_t* pszFormat, ...) {
    std::va_list Arguments;
    va_start(Arguments, pszFormat);
    const int nLength = _vsnwprintf(pszBuffer, uCount, pszFormat, Arguments);
    va_end(Arguments);
    return nLength;
}

// One number behind a fixed beginning: d, u, x, p with no size, l or I64 before it.
int _snscanf(const char* pszText, std::size_t uSize, const char* pszFormat, ...) {
    const std::string strText(pszText, strnlen(pszText, uSize));
    std::size_t uAt = 0;
    for (; *pszFormat != '%'; ++pszFormat, ++uAt) {
        if (uAt == strText.size()) {
            return EOF;
        }
        if (strText[uAt] != *pszFormat) {
            return 0;
        }
    }
    const std::string strKind = pszFormat + 1;
    while (uAt < strText.size() && IsBlank(strText[uAt])) {
        ++uAt;
    }
    if (uAt == strText.size()) {
        return EOF;
    }
    const bool bNegative = strText[uAt] == '-';
    if (strText[uAt] == '-' || strText[uAt] == '+') {
        ++uAt;
    }
    const unsigned uBase = strKind.back() == 'x' || strKind.back() == 'p' ? 16 : 10;
    if (strKind.back() == 'x' && strText.compare(uAt, 1, "0") == 0 && uAt + 1 < strText.size() &&
        (strText[uAt + 1] == 'x' || strText[uAt + 1] == 'X')) {
        uAt += 2;
    }
    const std::size_t uFirst = uAt;
    std::uint64_t uValue = 0;
    for (; uAt < strText.size() && DigitOf(strText[uAt], uBase) >= 0; ++uAt) {
        uValue = uValue * uBase + static_cast<std::uint64_t>(DigitOf(strText[uAt], uBase));
    }
    if (uAt == uFirst) {
        return 0;
    }
    uValue = bNegative ? 0 - uValue : uValue;
    std::va_list Arguments;
    va_start(Arguments, pszFormat);
    void* pValue = va_arg(Arguments, void*);
    va_end(Arguments);
    if (strKind[0] == 'l') {
        *static_cast<unsigned long*>(pValue) = static_cast<std::uint32_t>(uValue);
    } else if (strKind[0] == 'I' || strKind == "p") {
        *static_cast<std::uint64_t*>(pValue) = uValue;
    } else {
        *static_cast<std::uint32_t*>(pValue) = static_cast<std::uint32_t>(uValue);
    }
    return 1;
}

int _wtoi(const wchar_t* pszText) {
    while (*pszText == ' ' || (*pszText >= '\t' && *pszText <= '\r')) {
        ++pszText;
    }
    const bool bNegative = *pszText == '-';
    if (*pszText == '-' || *pszText == '+') {
        ++pszText;
    }
    // Numbers out of range end at the range's end.
    std::int64_t nValue = 0;
    for (; *pszText >= '0' && *pszText <= '9'; ++pszText) {
        nValue = std::min<std::int64_t>(nValue * 10 + (*pszText - '0'), std::int64_t{INT32_MAX} + 1);
    }
    return static_cast<int>(std::clamp<std::int64_t>(bNegative ? -nValue : nValue, INT32_MIN, INT32_MAX));
}
