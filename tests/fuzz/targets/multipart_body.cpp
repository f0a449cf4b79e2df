// The body of a form, read back by a reader that knows nothing but the format. Input: what happens to the file, its
// path and part name, the fields, and the file's bytes.
#include <vector>

#include "Fuzz.h"
#include "Unicode.h"
#include "native/World.h"
#include "net/MultipartBody.h"

namespace {

using crashvane::ParameterMap;
using crashvane::UploadFile;

struct Part {
    std::string strHead;  // with the line ends between its lines
    std::string strContent;
};

// False: this is no body with that boundary. The epilogue has to be empty, and so has the preamble.
bool ReadBody(const std::string& strBody, const std::string& strBoundary, std::vector<Part>& Parts) {
    const std::string strDelimiter = "\r\n--" + strBoundary;
    // The delimiter's own line end is missing before the first part alone.
    std::string strRest = strBody.starts_with("--") ? "\r\n" + strBody : strBody;
    while (strRest.starts_with(strDelimiter + "\r\n")) {
        strRest.erase(0, strDelimiter.size() + 2);
        const std::size_t uContent = strRest.find("\r\n\r\n");
        if (uContent == std::string::npos) {
            return false;
        }
        const std::size_t uEnd = strRest.find(strDelimiter, uContent + 2);
        if (uEnd == std::string::npos || uEnd < uContent + 4) {
            return false;
        }
        Parts.push_back({strRest.substr(0, uContent), strRest.substr(uContent + 4, uEnd - uContent - 4)});
        strRest.erase(0, uEnd);
    }
    return strRest == strDelimiter + "--\r\n";
}

bool IsValidName(const std::wstring& strName) {
    return !strName.empty() && strName.find_first_not_of([] {
        std::wstring strAllowed;
        for (wchar_t cUnit = 32; cUnit < 128; ++cUnit) {
            strAllowed += cUnit != L'"' ? std::wstring(1, cUnit) : L"";
        }
        return strAllowed;
    }()) == std::wstring::npos;
}

// A line of pairs of bytes or, as most, of Latin letters.
std::wstring WideLine(fuzz::Input& Given) {
    const std::string strLine = Given.Line();
    if (strLine.empty() || strLine[0] != '\x01') {
        return fuzz::Widened(strLine);
    }
    std::wstring strWide;
    for (std::size_t uAt = 1; uAt + 1 < strLine.size(); uAt += 2) {
        strWide += static_cast<wchar_t>(static_cast<unsigned char>(strLine[uAt]) << 8 |
                                        static_cast<unsigned char>(strLine[uAt + 1]));
    }
    return strWide;
}

// What cannot be encoded has become replacement characters, three bytes each.
void CheckEncoded(const std::string& strFound, const std::wstring& strWide, const char* pszProperty) {
    std::string strExpected;
    if (fuzz::Utf8Of(strWide, strExpected)) {
        fuzz::RequireSame(strFound, strExpected, pszProperty);
    } else {
        fuzz::Require(strFound.find("\xEF\xBF\xBD") != std::string::npos, "what is no character is replaced");
    }
}

void CheckParts(const std::vector<Part>& Parts, const ParameterMap& Parameters, const UploadFile& File,
                const std::string& strBytes) {
    fuzz::Require(Parts.size() == Parameters.size() + (File.strPath.empty() ? 0 : 1), "a part for every field");
    std::size_t uAt = 0;
    for (const auto& [strName, strValue] : Parameters) {
        const Part& Found = Parts[uAt++];
        fuzz::RequireSame(
            Found.strHead,
            "Content-Disposition: form-data; name=\"" + std::string(strName.begin(), strName.end()) + "\"",
            "the head of a field");
        // An empty line stands behind the last value when no file follows.
        const bool bLast = uAt == Parts.size();
        fuzz::Require(!bLast || Found.strContent.ends_with("\r\n"), "the empty line before the end");
        CheckEncoded(Found.strContent.substr(0, Found.strContent.size() - (bLast ? 2 : 0)), strValue, "a value");
    }
    if (!File.strPath.empty()) {
        const std::string& strHead = Parts.back().strHead;
        const std::string strBegin = "Content-Disposition: form-data; name=\"";
        const std::string strMiddle = "\"; filename=\"";
        const std::string strEnd = "\"\r\nContent-Type: application/octet-stream";
        const std::size_t uMiddle = strHead.find(strMiddle);
        fuzz::Require(strHead.starts_with(strBegin) && strHead.ends_with(strEnd) && uMiddle != std::string::npos,
                      "the head of the file");
        const std::size_t uPath = uMiddle + strMiddle.size();
        CheckEncoded(strHead.substr(strBegin.size(), uMiddle - strBegin.size()), File.strPartName, "the part's name");
        CheckEncoded(strHead.substr(uPath, strHead.size() - strEnd.size() - uPath), File.strPath, "the file's path");
        fuzz::RequireSame(Parts.back().strContent, strBytes, "the file's bytes");
    }
}

std::wstring CheckedBoundary(unsigned uSeed) {
    char szExpected[44];
    std::srand(uSeed);
    const int nFirst = std::rand();
    std::snprintf(szExpected, sizeof(szExpected), "---------------------------%08X%08X", static_cast<unsigned>(nFirst),
                  static_cast<unsigned>(std::rand()));
    std::srand(uSeed);
    const std::wstring strBoundary = crashvane::MakeBoundary();
    fuzz::Require(strBoundary == fuzz::Widened(szExpected), "the boundary is hyphens and two random numbers");
    return strBoundary;
}

// What a path is as a file of the world: the conversion has its own check.
std::string KeyOf(const std::wstring& strPath) {
    std::string strUtf8;
    return fuzz::Utf8Of(strPath, strUtf8) ? strUtf8 : std::string();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uSize) {
    native::ResetWorld();
    fuzz::Input Given(pBytes, uSize);
    const unsigned uFault = Given.Byte() % 8;
    const std::wstring strBoundary = CheckedBoundary(Given.Byte());
    const std::string strBoundaryBytes(strBoundary.begin(), strBoundary.end());
    const UploadFile File = {WideLine(Given), WideLine(Given)};
    const unsigned uFields = Given.Byte() % 16;
    ParameterMap Parameters;
    bool bNamesValid = true;
    for (unsigned uField = 0; uField < uFields; ++uField) {
        const std::wstring strName = WideLine(Given);
        Parameters[strName] = WideLine(Given);
        bNamesValid = bNamesValid && IsValidName(strName);
    }
    const std::string strBytes = Given.Rest();
    fuzz::Require(crashvane::AreNamesValid(Parameters) == bNamesValid, "names are characters 32 to 127 but quotes");
    if (!bNamesValid || File.strPath.find(L'\0') != std::wstring::npos) {
        return 0;
    }
    const std::string strKey = KeyOf(File.strPath);
    const bool bThere = uFault != 1 && !strKey.empty();
    if (bThere) {
        native::File& Made = native::MakeFile(strKey, strBytes);
        Made.bUnreadable = uFault == 2;
        Made.uHidden = uFault == 3 ? 1 : uFault == 4 ? 0x100000000 : uFault == 5 ? UINT64_MAX / 4 : 0;
    }
    const bool bWhole = bThere && !strBytes.empty() && (uFault < 2 || uFault > 5);
    crashvane::MultipartBody Body;
    const bool bBuilt = Body.Build(strBoundary, Parameters, File);
    fuzz::Require(bBuilt == (File.strPath.empty() || bWhole), "a body needs its whole file");
    const std::string strAll = bBuilt ? std::string(Body.Data(), Body.Size()) : std::string();
    // A boundary inside a value makes a body that nobody can read; chance decides against it.
    std::size_t uBoundaries = 0;
    for (std::size_t uAt = strAll.find(strBoundaryBytes); uAt != std::string::npos;
         uAt = strAll.find(strBoundaryBytes, uAt + 1)) {
        ++uBoundaries;
    }
    if (bBuilt && uBoundaries == Parameters.size() + (File.strPath.empty() ? 1 : 2)) {
        std::vector<Part> Parts;
        fuzz::Require(ReadBody(strAll, strBoundaryBytes, Parts), "the body can be read");
        CheckParts(Parts, Parameters, File, strBytes);
    }
    return 0;
}
