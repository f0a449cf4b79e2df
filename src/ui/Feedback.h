// The user's feedback text as it is sent: narrow, and of a limited size.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace crashvane {

constexpr std::size_t FeedbackLimit = 1024;  // bytes, terminator included

// The text of an edit control in the ANSI code page, cut to the limit. Empty for a missing control.
std::string FeedbackOf(HWND hEdit);

// At most uBytes bytes of a text; a double-byte character that would be cut in half is left out.
std::string CutBetweenCharacters(const std::string& strText, std::size_t uBytes, UINT uCodePage = CP_ACP);

}  // namespace crashvane
