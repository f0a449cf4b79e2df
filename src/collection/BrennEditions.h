// What the flagship's version keys mean: editions and banners, as functions of texts alone.
#pragma once

#include <string>

namespace crashvane {

// Version ex from what "version.cfg" says and the executable that crashed. The prefix of the code name "pakv4" stays
// with the game and the downloader alone; the tools' names replace it.
std::string BrennVersionEx(const std::string& strExecutable, const std::string& strCodeName,
                           const std::string& strVersionEx, const std::string& strLineName);

// The banner of an edition by its line name, compared exactly; the common one for all others.
constexpr int BrennCommonImageId = 130;
int BrennImageId(const std::string& strLineName);

// The first folder's name of a path below strFolder; empty when the path has no folder there.
std::string FirstFolderBelow(const std::string& strFolder, const std::string& strPath);

}  // namespace crashvane
