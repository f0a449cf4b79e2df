#include "report/XmlSyntax.h"

#include <array>
#include <cstring>

namespace crashvane {
namespace {

// The classes of the "C" locale, in which the program runs. Every byte from 127 on is a letter to the library.
enum ByteClass : unsigned char { Blank = 1, NameStart = 2, NamePart = 4 };

constexpr std::array<unsigned char, 256> ClassesOfBytes() {
    std::array<unsigned char, 256> Table = {};
    for (unsigned uByte = 0; uByte < Table.size(); ++uByte) {
        const bool bLetter = (uByte >= 'a' && uByte <= 'z') || (uByte >= 'A' && uByte <= 'Z') || uByte >= 127;
        const bool bDigit = uByte >= '0' && uByte <= '9';
        const bool bSign = uByte == '-' || uByte == '.' || uByte == ':';
        const bool bBlank = uByte == ' ' || (uByte >= '\t' && uByte <= '\r');
        Table[uByte] = static_cast<unsigned char>((bBlank ? Blank : 0) | (bLetter || uByte == '_' ? NameStart : 0) |
                                                  (bLetter || bDigit || bSign || uByte == '_' ? NamePart : 0));
    }
    return Table;
}

constexpr std::array<unsigned char, 256> Classes = ClassesOfBytes();

bool Is(ByteClass Class, char cByte) {
    return (Classes[static_cast<unsigned char>(cByte)] & Class) != 0;
}

Position OrEnd(Position pAt) {
    return pAt != nullptr && *pAt != '\0' ? pAt : nullptr;
}

bool IsDigit(char cByte, bool bHexadecimal) {
    return (cByte >= '0' && cByte <= '9') ||
           (bHexadecimal && ((cByte >= 'a' && cByte <= 'f') || (cByte >= 'A' && cByte <= 'F')));
}

// A numeric reference reaches to the next semicolon wherever that stands, over quotes and tags, if what precedes the
// semicolon are digits back to the nearest "#" or "x"; the rest is swallowed. Named ones need no care: none of their
// characters ends anything.
Position SkipReference(Position pAt) {
    if (pAt[1] != '#' || pAt[2] == '\0') {
        return pAt + 1;
    }
    const bool bHexadecimal = pAt[2] == 'x';
    const char cMark = bHexadecimal ? 'x' : '#';
    const Position pEnd = std::strchr(pAt + 2, ';');
    if (pEnd == nullptr) {
        return nullptr;
    }
    for (Position pDigit = pEnd - 1; *pDigit != cMark; --pDigit) {
        if (!IsDigit(*pDigit, bHexadecimal)) {
            return nullptr;
        }
    }
    return pEnd + 1;
}

// Text up to cEnd, references included: the position of cEnd, or nullptr.
Position FindEndOfText(Position pAt, char cEnd) {
    while (pAt != nullptr && *pAt != '\0' && *pAt != cEnd) {
        pAt = *pAt == '&' ? SkipReference(pAt) : pAt + 1;
    }
    return OrEnd(pAt);
}

Position SkipUnquotedValue(Position pAt) {
    for (; *pAt != '\0' && !Is(Blank, *pAt) && *pAt != '/' && *pAt != '>'; ++pAt) {
        if (*pAt == '\'' || *pAt == '"') {
            return nullptr;
        }
    }
    return pAt;
}

}  // namespace

namespace XmlSyntax {

bool IsNameStart(char cByte) {
    return Is(NameStart, cByte);
}

bool StartsWith(Position pAt, const char* pszStart) {
    return std::strncmp(pAt, pszStart, std::strlen(pszStart)) == 0;
}

bool StartsWithAnyCase(Position pAt, const char* pszStart) {
    for (; *pszStart != '\0'; ++pAt, ++pszStart) {
        const char cLower = *pAt >= 'A' && *pAt <= 'Z' ? static_cast<char>(*pAt - 'A' + 'a') : *pAt;
        if (cLower != *pszStart) {
            return false;
        }
    }
    return true;
}

Position SkipBlanks(Position pAt) {
    while (pAt != nullptr && Is(Blank, *pAt)) {
        ++pAt;
    }
    return OrEnd(pAt);
}

Position SkipName(Position pAt) {
    while (Is(NamePart, *pAt)) {
        ++pAt;
    }
    return pAt;
}

Position Behind(Position pAt, const char* pszEnd) {
    pAt = std::strstr(pAt, pszEnd);
    return pAt != nullptr ? pAt + std::strlen(pszEnd) : nullptr;
}

Position SkipText(Position pAt) {
    pAt = FindEndOfText(pAt, '<');
    return pAt != nullptr && pAt[1] != '\0' ? pAt : nullptr;
}

Position SkipAttribute(Position pAt) {
    if (!Is(NameStart, *pAt)) {
        return nullptr;
    }
    pAt = SkipBlanks(SkipName(pAt));
    if (pAt == nullptr || *pAt != '=') {
        return nullptr;
    }
    pAt = SkipBlanks(pAt + 1);
    if (pAt == nullptr) {
        return nullptr;
    }
    if (*pAt != '\'' && *pAt != '"') {
        return OrEnd(SkipUnquotedValue(pAt));
    }
    pAt = FindEndOfText(pAt + 1, *pAt);
    return pAt != nullptr ? OrEnd(pAt + 1) : nullptr;
}

Position SkipDeclaration(Position pAt) {
    pAt += std::strlen("<?xml");
    while (pAt != nullptr && *pAt != '>') {
        pAt = SkipBlanks(pAt);
        if (pAt == nullptr) {
            return nullptr;
        }
        if (StartsWithAnyCase(pAt, "version") || StartsWithAnyCase(pAt, "encoding") ||
            StartsWithAnyCase(pAt, "standalone")) {
            pAt = SkipAttribute(pAt);
        } else {
            while (*pAt != '\0' && *pAt != '>' && !Is(Blank, *pAt)) {
                ++pAt;
            }
        }
    }
    return pAt != nullptr ? pAt + 1 : nullptr;
}

}  // namespace XmlSyntax
}  // namespace crashvane
