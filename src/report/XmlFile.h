// One XML document from a file and to a file: the same documents and bytes as with the XML library's own LoadFile and
// SaveFile, but guarded, and sure of the last byte.
//
// Results are 1 for success, 0 for failure; nothing here logs.
#pragma once

#include <string>

class TiXmlDocument;

namespace crashvane {

// Reads the file once, in whole, and fills the document with it. Fails for a file that is missing, unreadable, empty
// or malformed, or past one of the limits of XmlGuard.h. Text is bytes, whatever the file declares.
int LoadXmlFile(const std::string& strFileName, TiXmlDocument& Document);

// Writes over the named file in the platform's text mode, once the whole text is made. Success means that every byte
// reached the file. For documents whose elements hold either one text or other elements, as reports do.
int SaveXmlFile(const std::string& strFileName, const TiXmlDocument& Document);

}  // namespace crashvane
