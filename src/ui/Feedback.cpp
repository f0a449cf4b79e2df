#include "ui/Feedback.h"

#include "util/Text.h"

namespace crashvane {

std::string FeedbackOf(HWND hEdit) {
    const int nLength = GetWindowTextLengthW(hEdit);
    if (nLength <= 0) {
        return {};
    }
    std::wstring strText(static_cast<std::size_t>(nLength) + 1, L'\0');
    strText.resize(static_cast<std::size_t>(GetWindowTextW(hEdit, strText.data(), nLength + 1)));
    return CutBetweenCharacters(ToAnsi(strText), FeedbackLimit - 1);
}

std::string CutBetweenCharacters(const std::string& strText, std::size_t uBytes, UINT uCodePage) {
    if (strText.size() <= uBytes) {
        return strText;
    }
    std::size_t uEnd = 0;
    while (uEnd < uBytes) {
        const std::size_t uCharacter = IsDBCSLeadByteEx(uCodePage, static_cast<BYTE>(strText[uEnd])) ? 2 : 1;
        if (uEnd + uCharacter > uBytes) {
            break;
        }
        uEnd += uCharacter;
    }
    return strText.substr(0, uEnd);
}

}  // namespace crashvane
