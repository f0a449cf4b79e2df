#include "util/Text.h"

#include <cctype>
#include <cstdarg>
#include <cstdio>
#include <vector>

namespace crashvane {
namespace {

// FormatMessage's buffer belongs to the caller and goes back to LocalFree.
struct SystemText {
    char* pszText = nullptr;
    ~SystemText() { LocalFree(pszText); }
};

// Exactly uSize characters without a terminator, or an overflow, cut the text at uSize - 1.
template <typename Text>
Text Finished(Text strBuffer, int nLength) {
    const std::size_t uRoom = strBuffer.size() - 1;
    strBuffer.resize(nLength < 0 || static_cast<std::size_t>(nLength) > uRoom ? uRoom
                                                                              : static_cast<std::size_t>(nLength));
    return strBuffer;
}

}  // namespace

std::string ToAnsi(std::wstring_view strWide) {
    const int nWide = static_cast<int>(strWide.size());
    if (nWide == 0) {
        return std::string();
    }
    const int nAnsi = WideCharToMultiByte(CP_ACP, 0, strWide.data(), nWide, nullptr, 0, nullptr, nullptr);
    std::string strAnsi(static_cast<std::size_t>(nAnsi), '\0');
    WideCharToMultiByte(CP_ACP, 0, strWide.data(), nWide, strAnsi.data(), nAnsi, nullptr, nullptr);
    return strAnsi;
}

std::wstring ToUtf16(std::string_view strAnsi) {
    const int nAnsi = static_cast<int>(strAnsi.size());
    if (nAnsi == 0) {
        return std::wstring();
    }
    const int nWide = MultiByteToWideChar(CP_ACP, 0, strAnsi.data(), nAnsi, nullptr, 0);
    std::wstring strWide(static_cast<std::size_t>(nWide), L'\0');
    MultiByteToWideChar(CP_ACP, 0, strAnsi.data(), nAnsi, strWide.data(), nWide);
    return strWide;
}

std::string LastErrorText() {
    SystemText Message;
    FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                   GetLastError(), 0, reinterpret_cast<char*>(&Message.pszText), 0, nullptr);
    return Message.pszText != nullptr ? Message.pszText : std::string();
}

std::string ResourceText(const char* pszType, const char* pszName, WORD wLanguage) {
    HRSRC hResource = FindResourceExA(nullptr, pszType, pszName, wLanguage);
    if (hResource == nullptr) {
        hResource = FindResourceA(nullptr, pszName, pszType);
    }
    const HGLOBAL hLoaded = hResource != nullptr ? LoadResource(nullptr, hResource) : nullptr;
    const void* pBytes = hLoaded != nullptr ? LockResource(hLoaded) : nullptr;
    if (pBytes == nullptr) {
        return std::string();
    }
    return std::string(static_cast<const char*>(pBytes), SizeofResource(nullptr, hResource));
}

std::string Format(std::size_t uSize, const char* pszFormat, ...) {
    std::string strText(uSize, '\0');
    std::va_list Arguments;
    va_start(Arguments, pszFormat);
    const int nLength = _vsnprintf(strText.data(), uSize, pszFormat, Arguments);
    va_end(Arguments);
    return Finished(std::move(strText), nLength);
}

std::wstring Format(std::size_t uSize, const wchar_t* pszFormat, ...) {
    std::wstring strText(uSize, L'\0');
    std::va_list Arguments;
    va_start(Arguments, pszFormat);
    const int nLength = _vsnwprintf(strText.data(), uSize, pszFormat, Arguments);
    va_end(Arguments);
    return Finished(std::move(strText), nLength);
}

std::string FormatText(const char* pszFormat, ...) {
    std::va_list Arguments;
    va_start(Arguments, pszFormat);
    const int nLength = _vscprintf(pszFormat, Arguments);
    va_end(Arguments);
    if (nLength <= 0) {
        return std::string();
    }
    std::string strText(static_cast<std::size_t>(nLength), '\0');
    va_start(Arguments, pszFormat);
    _vsnprintf(strText.data(), strText.size(), pszFormat, Arguments);
    va_end(Arguments);
    return strText;
}

std::string ToLower(std::string strText) {
    for (char& cByte : strText) {
        cByte = static_cast<char>(std::tolower(static_cast<unsigned char>(cByte)));
    }
    return strText;
}

std::string ToUpper(std::string strText) {
    for (char& cByte : strText) {
        cByte = static_cast<char>(std::toupper(static_cast<unsigned char>(cByte)));
    }
    return strText;
}

}  // namespace crashvane
