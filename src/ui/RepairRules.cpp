#include "ui/RepairRules.h"

#include <cstring>

#include "util/Text.h"

namespace crashvane {
namespace {

constexpr wchar_t RepairToolName[] = L"Mendwell.exe";

// The text in front of its last "\"; false when it has none.
bool CutAtLastSeparator(std::wstring& strPath) {
    const std::size_t uAt = strPath.find_last_of(L'\\');
    if (uAt == std::wstring::npos) {
        return false;
    }
    strPath.resize(uAt);
    return true;
}

const char* BehindLastSeparator(const std::string& strPath, UINT uCodePage) {
    const char* pszName = nullptr;
    for (const char* pszAt = strPath.c_str(); *pszAt != '\0'; ++pszAt) {
        if (IsDBCSLeadByteEx(uCodePage, static_cast<BYTE>(*pszAt)) && pszAt[1] != '\0') {
            ++pszAt;
        } else if (*pszAt == '\\') {
            pszName = pszAt + 1;
        }
    }
    return pszName;
}

}  // namespace

std::wstring RepairToolOf(const std::wstring& strExecutable) {
    std::wstring strPath = strExecutable;
    if (strPath.size() >= RepairPathLimit || !CutAtLastSeparator(strPath) || !CutAtLastSeparator(strPath)) {
        return {};
    }
    strPath += L'\\';
    strPath += RepairToolName;
    return strPath.size() < RepairPathLimit ? strPath : std::wstring();
}

std::string ModuleVersionOf(const std::vector<Module>& Modules, const std::string& strModule, UINT uCodePage) {
    for (const Module& One : Modules) {
        const char* pszName = BehindLastSeparator(One.FullPath, uCodePage);
        if (pszName != nullptr && _stricmp(pszName, strModule.c_str()) == 0) {
            return One.FileVersion;
        }
    }
    return {};
}

std::string RepairCommandLine(const RepairFacts& Facts) {
    return Format(RepairCommandLimit, "%s -crash \"%d=(k=%s,m=%s,v=%s,t=%I64u,r=%I64u)\"", Facts.strTool.c_str(),
                  Facts.nCrashType, Facts.strDumpKey.c_str(), Facts.strModule.c_str(), Facts.strModuleVersion.c_str(),
                  Facts.uCrashTime, Facts.uTimeToFailure);
}

}  // namespace crashvane
