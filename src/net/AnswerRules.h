// What the client makes of the texts of an answer's head: status, announced length, and whether the body is whole.
#pragma once

#include <cstddef>

namespace crashvane {

constexpr int STATUS_OK = 200;

// Leading digits, base 10; 0 for a text without any.
int ParseStatus(const wchar_t* pszStatus);

// A length as it was announced; negative and saturated ones are what they are and are met by no body.
long ParseLength(const wchar_t* pszLength);

// The bytes to set aside for an announced length: none when it is negative or nothing that a sane server would send,
// for a lie in the head must not cost memory. Such an answer grows as it comes.
std::size_t BytesToReserve(long nAnnounced);

struct AnswerLength {
    bool bAnnounced = false;
    long nAnnounced = 0;
};

// The platform takes a cut answer for a whole one, so that an announced length must be met exactly.
bool IsWhole(const AnswerLength& Length, std::size_t uRead);

}  // namespace crashvane
