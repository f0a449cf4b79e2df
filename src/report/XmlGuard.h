// Keeps documents away from the XML library that would overflow its stack or keep it busy for minutes.
//
// The library parses elements recursively and looks every attribute up among those before it. The guard walks the text
// once, without recursion and without memory of its own, and takes comments, CDATA, quotes, declarations, entities and
// mistakes exactly as the library does. It judges nothing else: a malformed document is left to the library.
#pragma once

#include <cstddef>

namespace crashvane {

inline constexpr int XmlMaxDepth = 200;                          // elements nested in each other, the root included
inline constexpr int XmlMaxAttributes = 1000;                    // of one element
inline constexpr std::size_t XmlMaxSize = 64UL * 1024UL * 1024;  // bytes of the file

// What the library would meet in a document, up to the place where it would give up or a limit is passed.
struct XmlShape {
    int nDepth = 0;       // of the deepest element
    int nAttributes = 0;  // of the element that has most
};

// The text ends at its first zero, as it does for the library, and its line ends are single line feeds.
XmlShape MeasureXml(const char* pszText);

// Neither limit is passed.
bool IsXmlHarmless(const char* pszText);

}  // namespace crashvane
