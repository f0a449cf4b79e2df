// One XML document from a file and to a file, with the meaning of the XML library's own LoadFile and SaveFile.
//
// Results are 1 for success, 0 for failure; nothing here logs.
#pragma once

#include <string>

class TiXmlDocument;

namespace crashvane {

// Reads the file once, in whole, and fills the document with it. Fails for a file that is missing, unreadable, empty
// or malformed, or past one of the limits of XmlGuard.h. Text is bytes, whatever the file declares.
int LoadXmlFile(const std::string& strFileName, TiXmlDocument& Document);

// Writes over the named file in the platform's text mode. Success means that every byte reached the file.
int SaveXmlFile(const std::string& strFileName, const TiXmlDocument& Document);

}  // namespace crashvane
