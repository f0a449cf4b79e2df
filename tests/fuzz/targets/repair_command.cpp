// Where the repair tool is looked for, and what it is told. Input: the executable, then code page, numbers, texts and
// the modules, two lines each.
#include <vector>

#include "Fuzz.h"
#include "native/World.h"
#include "ui/RepairRules.h"

namespace {

using crashvane::Module;
using crashvane::RepairFacts;

void CheckTool(const std::wstring& strExecutable) {
    std::vector<std::wstring> Parts = {L""};
    for (const wchar_t cUnit : strExecutable) {
        if (cUnit == L'\\') {
            Parts.emplace_back();
        } else {
            Parts.back() += cUnit;
        }
    }
    std::wstring strExpected;
    if (Parts.size() > 2 && strExecutable.size() < 260) {
        for (std::size_t uPart = 0; uPart + 2 < Parts.size(); ++uPart) {
            strExpected += Parts[uPart] + L"\\";
        }
        strExpected += L"Mendwell.exe";
    }
    strExpected = strExpected.size() < 260 ? strExpected : L"";
    fuzz::Require(crashvane::RepairToolOf(strExecutable) == strExpected, "the tool lies two folders up");
}

// Whole characters, so that no half of one is taken for a separator.
std::string FileName(const std::string& strPath, bool bDoubleByte, bool& bHasFolder) {
    std::string strName;
    bHasFolder = false;
    for (std::size_t uAt = 0; uAt < strPath.size(); ++uAt) {
        const auto cByte = static_cast<unsigned char>(strPath[uAt]);
        if (bDoubleByte && cByte > 0x80 && cByte < 0xFF && uAt + 1 < strPath.size()) {
            strName += strPath.substr(uAt++, 2);
        } else if (cByte == '\\') {
            bHasFolder = true;
            strName.clear();
        } else {
            strName += strPath[uAt];
        }
    }
    return strName;
}

std::string Lowered(std::string strText) {
    for (char& cByte : strText) {
        cByte = cByte >= 'A' && cByte <= 'Z' ? static_cast<char>(cByte + 32) : cByte;
    }
    return strText;
}

void CheckVersion(const std::vector<Module>& Modules, const std::string& strModule, bool bDoubleByte) {
    std::string strExpected;
    for (const Module& Each : Modules) {
        bool bHasFolder = false;
        const std::string strName = FileName(Each.FullPath, bDoubleByte, bHasFolder);
        if (bHasFolder && Lowered(strName) == Lowered(strModule)) {
            strExpected = Each.FileVersion;
            break;
        }
    }
    fuzz::RequireSame(crashvane::ModuleVersionOf(Modules, strModule, bDoubleByte ? 936 : 1252), strExpected,
                      "the version of the first module of that name");
    native::TheWorld().uCodePage = bDoubleByte ? 936 : 1252;
    fuzz::RequireSame(crashvane::ModuleVersionOf(Modules, strModule), strExpected, "the system's code page counts");
}

void CheckCommand(const RepairFacts& Facts) {
    std::string strExpected = Facts.strTool + " -crash \"" + std::to_string(Facts.nCrashType) +
                              "=(k=" + Facts.strDumpKey + ",m=" + Facts.strModule + ",v=" + Facts.strModuleVersion +
                              ",t=" + std::to_string(Facts.uCrashTime) + ",r=" + std::to_string(Facts.uTimeToFailure) +
                              ")\"";
    strExpected.resize(std::min<std::size_t>(strExpected.size(), 519));
    fuzz::RequireSame(crashvane::RepairCommandLine(Facts), strExpected, "the command line");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uSize) {
    native::ResetWorld();
    fuzz::Input Given(pBytes, uSize);
    CheckTool(fuzz::Widened(Given.Line()));
    const bool bDoubleByte = (Given.Byte() & 1) != 0;
    RepairFacts Facts;
    Facts.nCrashType = static_cast<std::int32_t>(Given.Number(4));
    Facts.uCrashTime = Given.Number(8);
    Facts.uTimeToFailure = Given.Number(8);
    Facts.strTool = fuzz::UpToZero(Given.Line());
    Facts.strDumpKey = fuzz::UpToZero(Given.Line());
    Facts.strModule = fuzz::UpToZero(Given.Line());
    std::vector<Module> Modules;
    while (!Given.IsEmpty()) {
        Module& Each = Modules.emplace_back();
        Each.FullPath = fuzz::UpToZero(Given.Line());
        Each.FileVersion = Given.Line();
    }
    CheckVersion(Modules, Facts.strModule, bDoubleByte);
    Facts.strModuleVersion = Modules.empty() ? "" : fuzz::UpToZero(Modules.front().FileVersion);
    CheckCommand(Facts);
    return 0;
}
