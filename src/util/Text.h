// Conversions between the ANSI code page and UTF-16, bounded formatting, and the system's own texts.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "util/Compat.h"

namespace crashvane {

// Whole text, default replacement characters; embedded zeros pass through. Empty gives empty.
std::string ToAnsi(std::wstring_view strWide);
std::wstring ToUtf16(std::string_view strAnsi);

// The system's message for the calling thread's last error, in its default language; empty when there is none.
std::string LastErrorText();

// The bytes of a resource, looked up for the given language and then for any. Empty when there is none.
std::string ResourceText(const char* pszType, const char* pszName, WORD wLanguage);

// Printed with the Windows runtime's formats into at most uSize characters (terminator included); longer texts are cut.
std::string Format(std::size_t uSize, const char* pszFormat, ...) CRASHVANE_PRINTF(2, 3);
std::wstring Format(std::size_t uSize, const wchar_t* pszFormat, ...);

// Printed without a limit.
std::string FormatText(const char* pszFormat, ...) CRASHVANE_PRINTF(1, 2);

// Byte by byte with the C library's tolower and toupper.
std::string ToLower(std::string strText);
std::string ToUpper(std::string strText);

}  // namespace crashvane
