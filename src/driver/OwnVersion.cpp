#include "driver/OwnVersion.h"

#include <windows.h>

#include <vector>

#include "driver/SystemLibrary.h"
#include "log/Log.h"
#include "util/Text.h"

namespace crashvane {

namespace {

constexpr std::size_t VERSION_LENGTH = 24;

// version.dll is no library that the loader takes from the system in any case: it is asked for while the program runs.
struct VersionLibrary {
    LibraryHandle hLibrary = LoadSystemLibrary(L"version.dll");
    decltype(&GetFileVersionInfoSizeW) pfnSize = nullptr;
    decltype(&GetFileVersionInfoW) pfnInfo = nullptr;
    decltype(&VerQueryValueW) pfnQuery = nullptr;

    VersionLibrary() {
        pfnSize = FunctionOf<decltype(pfnSize)>(hLibrary.Get(), "GetFileVersionInfoSizeW");
        pfnInfo = FunctionOf<decltype(pfnInfo)>(hLibrary.Get(), "GetFileVersionInfoW");
        pfnQuery = FunctionOf<decltype(pfnQuery)>(hLibrary.Get(), "VerQueryValueW");
    }
    // cppcheck-suppress knownConditionTrueFalse
    [[nodiscard]] bool IsComplete() const { return pfnSize != nullptr && pfnInfo != nullptr && pfnQuery != nullptr; }
};

std::wstring OwnFile() {
    wchar_t szFile[MAX_PATH] = {};
    const DWORD dwLength = GetModuleFileNameW(nullptr, szFile, MAX_PATH);
    return dwLength < MAX_PATH ? std::wstring(szFile, dwLength) : std::wstring();
}

}  // namespace

std::wstring FileVersionOf(const std::wstring& strFile) {
    const VersionLibrary Library;
    if (!Library.IsComplete()) {
        return std::wstring();
    }
    DWORD dwIgnored = 0;
    const DWORD dwSize = Library.pfnSize(strFile.c_str(), &dwIgnored);
    if (dwSize == 0) {
        return std::wstring();
    }
    std::vector<BYTE> Resource(dwSize);
    void* pFixed = nullptr;
    UINT uLength = 0;
    if (!Library.pfnInfo(strFile.c_str(), 0, dwSize, Resource.data()) ||
        !Library.pfnQuery(Resource.data(), L"\\", &pFixed, &uLength) || uLength < sizeof(VS_FIXEDFILEINFO)) {
        return std::wstring();
    }
    const VS_FIXEDFILEINFO& Fixed = *static_cast<const VS_FIXEDFILEINFO*>(pFixed);
    return Format(VERSION_LENGTH, L"%d.%d.%d.%d", HIWORD(Fixed.dwFileVersionMS), LOWORD(Fixed.dwFileVersionMS),
                  HIWORD(Fixed.dwFileVersionLS), LOWORD(Fixed.dwFileVersionLS));
}

void LogOwnVersion() {
    const std::wstring strFile = OwnFile();
    Log::Write(LogInfo, "[%s] %s v%s", "WinMain", ToAnsi(strFile).c_str(), ToAnsi(FileVersionOf(strFile)).c_str());
}

}  // namespace crashvane
