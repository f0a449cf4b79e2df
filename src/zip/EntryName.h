// The name of an entry, and what follows from it: the method.
#pragma once

#include <string>
#include <string_view>

#include "zip/ZipRecords.h"

namespace crashvane {

// The name as it stands in the archive: every backslash becomes "/". In a double-byte code page a 0x5C behind a lead
// byte is half of a character and stays.
std::string EntryName(const std::string& strName, unsigned uCodePage);

// Stored when the text from the last "." on (be it in a folder's name) is the suffix of an archive, in any case of
// letters; deflated otherwise.
ZipMethod MethodFor(std::string_view strName);

}  // namespace crashvane
