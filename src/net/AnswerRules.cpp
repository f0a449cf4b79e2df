#include "net/AnswerRules.h"

#include <cwchar>

namespace crashvane {
namespace {

constexpr long MAX_RESERVED = 64 * 1024 * 1024;

}  // namespace

int ParseStatus(const wchar_t* pszStatus) {
    return static_cast<int>(std::wcstol(pszStatus, nullptr, 10));
}

long ParseLength(const wchar_t* pszLength) {
    return std::wcstol(pszLength, nullptr, 10);
}

std::size_t BytesToReserve(long nAnnounced) {
    return nAnnounced < 0 || nAnnounced > MAX_RESERVED ? 0 : static_cast<std::size_t>(nAnnounced);
}

bool IsWhole(const AnswerLength& Length, std::size_t uRead) {
    return !Length.bAnnounced || (Length.nAnnounced >= 0 && static_cast<std::size_t>(Length.nAnnounced) == uRead);
}

}  // namespace crashvane
