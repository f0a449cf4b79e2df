// The qualified name of a function ("Config::LoadCmd"), cut out of the compiler's signature at compile time.
#pragma once

#include <cstddef>
#include <initializer_list>

namespace crashvane {

template <std::size_t Size>
struct FunctionNameText {
    char szText[Size] = {};
};

namespace FunctionNameDetail {

// Where the parameter list begins: the opening bracket that belongs to the last closing one.
template <std::size_t Size>
constexpr std::size_t ParametersAt(const char (&szSignature)[Size]) {
    std::size_t uAt = Size - 1;
    while (uAt > 0 && szSignature[uAt] != ')') {
        --uAt;
    }
    if (uAt == 0) {
        return Size - 1;
    }
    int nDepth = 0;
    for (; uAt > 0; --uAt) {
        if (szSignature[uAt] == ')') {
            ++nDepth;
        } else if (szSignature[uAt] == '(' && --nDepth == 0) {
            return uAt;
        }
    }
    return Size - 1;
}

constexpr bool StartsWith(const char* pszText, const char* pszStart) {
    while (*pszStart != '\0') {
        if (*pszText++ != *pszStart++) {
            return false;
        }
    }
    return true;
}

constexpr std::size_t Length(const char* pszText) {
    std::size_t uLength = 0;
    while (pszText[uLength] != '\0') {
        ++uLength;
    }
    return uLength;
}

}  // namespace FunctionNameDetail

// From "int crashvane::Config::LoadCmd(int, char**)" to "Config::LoadCmd": return type, the project's namespaces and
// parameters are left out.
template <std::size_t Size>
constexpr FunctionNameText<Size> FunctionName(const char (&szSignature)[Size]) {
    namespace Detail = FunctionNameDetail;
    FunctionNameText<Size> Name;
    const std::size_t uEnd = Detail::ParametersAt(szSignature);
    std::size_t uBegin = uEnd;
    int nDepth = 0;
    // Blanks inside template arguments and brackets belong to the name.
    while (uBegin > 0 && (nDepth > 0 || szSignature[uBegin - 1] != ' ')) {
        --uBegin;
        const char cAt = szSignature[uBegin];
        nDepth += (cAt == '>' || cAt == ')') ? 1 : (cAt == '<' || cAt == '(') ? -1 : 0;
    }
    // "&f(..." and "*f(...": the sign belongs to the returned type.
    while (szSignature[uBegin] == '*' || szSignature[uBegin] == '&') {
        ++uBegin;
    }
    for (const char* pszLeft : {"crashvane::", "{anonymous}::", "(anonymous namespace)::"}) {
        if (Detail::StartsWith(szSignature + uBegin, pszLeft)) {
            uBegin += Detail::Length(pszLeft);
        }
    }
    for (std::size_t uAt = uBegin; uAt < uEnd; ++uAt) {
        Name.szText[uAt - uBegin] = szSignature[uAt];
    }
    return Name;
}

}  // namespace crashvane
