#include "net/Utf8.h"

#include <windows.h>

namespace crashvane {

std::string ToUtf8(std::wstring_view strWide) {
    const int nWide = static_cast<int>(strWide.size());
    if (nWide <= 0) {
        return std::string();
    }
    const int nUtf8 = WideCharToMultiByte(CP_UTF8, 0, strWide.data(), nWide, nullptr, 0, nullptr, nullptr);
    std::string strUtf8(static_cast<std::size_t>(nUtf8), '\0');
    WideCharToMultiByte(CP_UTF8, 0, strWide.data(), nWide, strUtf8.data(), nUtf8, nullptr, nullptr);
    return strUtf8;
}

std::wstring FromUtf8(const std::string& strUtf8) {
    // The count includes the terminator; 0 says that nothing could be converted.
    const int nWide = MultiByteToWideChar(CP_UTF8, 0, strUtf8.c_str(), -1, nullptr, 0);
    if (nWide <= 1) {
        return std::wstring();
    }
    std::wstring strWide(static_cast<std::size_t>(nWide), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, strUtf8.c_str(), -1, strWide.data(), nWide);
    strWide.pop_back();
    return strWide;
}

}  // namespace crashvane
