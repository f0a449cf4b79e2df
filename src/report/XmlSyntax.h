// Where the constructs of an XML document end, as the XML library sees it, mistakes included. For XmlGuard alone.
//
// Every function is given the position at which its construct begins, in a text that ends with a zero, and answers the
// position behind it. nullptr is where the library stops reading, satisfied or with an error.
#pragma once

namespace crashvane {

using Position = const char*;

namespace XmlSyntax {

bool IsNameStart(char cByte);

bool StartsWith(Position pAt, const char* pszStart);

// pszStart is in lower case.
bool StartsWithAnyCase(Position pAt, const char* pszStart);

// To the next byte that is no blank; nullptr at the end of the text, and for nullptr.
Position SkipBlanks(Position pAt);

Position SkipName(Position pAt);

// Behind the next pszEnd.
Position Behind(Position pAt, const char* pszEnd);

// Text inside an element, references included: to the "<" behind it, which must not be the last character.
Position SkipText(Position pAt);

// Name, equals sign and value.
Position SkipAttribute(Position pAt);

// From "<?xml" on.
Position SkipDeclaration(Position pAt);

}  // namespace XmlSyntax
}  // namespace crashvane
