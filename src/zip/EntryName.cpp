#include "zip/EntryName.h"

#include <windows.h>

#include <algorithm>

namespace crashvane {
namespace {

// Files that compressing again would not make smaller.
constexpr std::string_view ArchiveSuffixes[] = {".z", ".zip", ".zoo", ".arc", ".lzh", ".arj", ".gz", ".tgz"};

// Letters of ASCII only: a suffix does not depend on anybody's locale.
char Lower(char cLetter) {
    return cLetter >= 'A' && cLetter <= 'Z' ? static_cast<char>(cLetter - 'A' + 'a') : cLetter;
}

bool EqualIgnoringCase(std::string_view strLeft, std::string_view strRight) {
    return std::equal(strLeft.begin(), strLeft.end(), strRight.begin(), strRight.end(),
                      [](char cLeft, char cRight) { return Lower(cLeft) == Lower(cRight); });
}

}  // namespace

std::string EntryName(const std::string& strName, unsigned uCodePage) {
    std::string strResult(strName, 0, strName.find('\0'));
    for (std::size_t uAt = 0; uAt < strResult.size(); ++uAt) {
        if (IsDBCSLeadByteEx(uCodePage, static_cast<BYTE>(strResult[uAt]))) {
            ++uAt;
        } else if (strResult[uAt] == '\\') {
            strResult[uAt] = '/';
        }
    }
    return strResult;
}

ZipMethod MethodFor(std::string_view strName) {
    const std::size_t uDot = strName.rfind('.');
    if (uDot == std::string_view::npos) {
        return ZipDeflated;
    }
    const std::string_view strSuffix = strName.substr(uDot);
    const bool bArchive = std::any_of(std::begin(ArchiveSuffixes), std::end(ArchiveSuffixes),
                                      [&](std::string_view Each) { return EqualIgnoringCase(strSuffix, Each); });
    return bArchive ? ZipStored : ZipDeflated;
}

}  // namespace crashvane
