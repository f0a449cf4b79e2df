#include "ModuleFacts.h"

#include <psapi.h>

#include <cstdio>

namespace sample {

namespace {

constexpr DWORD MODULES_AT_MOST = 1024;
constexpr DWORD RESOURCE_AT_MOST = 65536;

// Loaded by name out of the system's folder: a game's folder is writable for players, and what lies there under the
// name of a system library would be loaded instead of it.
HMODULE g_hVersion = nullptr;
decltype(&GetFileVersionInfoSizeA) g_pfnSize = nullptr;
decltype(&GetFileVersionInfoA) g_pfnInfo = nullptr;
decltype(&VerQueryValueA) g_pfnQuery = nullptr;

// Set aside at the start; at the crash no memory is asked for here.
HMODULE g_Modules[MODULES_AT_MOST];
BYTE g_Resource[RESOURCE_AT_MOST];

template <typename Function>
void Find(Function& pfnFound, const char* pszName) {
    pfnFound = reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(g_hVersion, pszName)));
}

void FormatVersion(char (&szVersion)[VERSION_SIZE], DWORD dwHigh, DWORD dwLow) {
    std::snprintf(szVersion, sizeof(szVersion), "%d.%d.%d.%d", HIWORD(dwHigh), LOWORD(dwHigh), HIWORD(dwLow),
                  LOWORD(dwLow));
}

// The link time stands in the module's own header.
DWORD TimeStampOf(const void* pBase) {
    const BYTE* const pBytes = static_cast<const BYTE*>(pBase);
    const auto* const pDos = reinterpret_cast<const IMAGE_DOS_HEADER*>(pBytes);
    const auto* const pNt = reinterpret_cast<const IMAGE_NT_HEADERS64*>(pBytes + pDos->e_lfanew);
    return pNt->FileHeader.TimeDateStamp;
}

void WriteModule(ReportFile& Report, HMODULE hModule) {
    char szPath[MAX_PATH] = {};
    char szFileVersion[VERSION_SIZE] = {};
    char szProductVersion[VERSION_SIZE] = {};
    MODULEINFO Info = {};
    if (!K32GetModuleInformation(GetCurrentProcess(), hModule, &Info, sizeof(Info)) ||
        GetModuleFileNameA(hModule, szPath, sizeof(szPath)) == 0) {
        return;
    }
    ReadVersions(szPath, szFileVersion, szProductVersion);
    Report.BeginAttributes("Module");
    Report.Attribute("FullPath", szPath);
    Report.Attribute("BaseOfImage", "0x%I64x", reinterpret_cast<DWORD64>(Info.lpBaseOfDll));
    Report.Attribute("SizeOfImage", "0x%I64x", Info.SizeOfImage);
    Report.Attribute("TimeDateStamp", "%I64u", TimeStampOf(Info.lpBaseOfDll));
    Report.Attribute("FileVersion", szFileVersion);
    Report.Attribute("ProductVersion", szProductVersion);
    Report.EndAttributes();
}

}  // namespace

void PrepareModuleFacts() {
    g_hVersion = LoadLibraryExW(L"version.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (g_hVersion != nullptr) {
        Find(g_pfnSize, "GetFileVersionInfoSizeA");
        Find(g_pfnInfo, "GetFileVersionInfoA");
        Find(g_pfnQuery, "VerQueryValueA");
    }
}

void ReadVersions(const char* pszFile, char (&szFileVersion)[VERSION_SIZE], char (&szProductVersion)[VERSION_SIZE]) {
    DWORD dwIgnored = 0;
    void* pFixed = nullptr;
    UINT uLength = 0;
    if (g_pfnSize == nullptr || g_pfnInfo == nullptr || g_pfnQuery == nullptr) {
        return;
    }
    const DWORD dwSize = g_pfnSize(pszFile, &dwIgnored);
    if (dwSize == 0 || dwSize > sizeof(g_Resource) || !g_pfnInfo(pszFile, 0, dwSize, g_Resource) ||
        !g_pfnQuery(g_Resource, "\\", &pFixed, &uLength) || uLength < sizeof(VS_FIXEDFILEINFO)) {
        return;
    }
    const VS_FIXEDFILEINFO& Fixed = *static_cast<const VS_FIXEDFILEINFO*>(pFixed);
    FormatVersion(szFileVersion, Fixed.dwFileVersionMS, Fixed.dwFileVersionLS);
    FormatVersion(szProductVersion, Fixed.dwProductVersionMS, Fixed.dwProductVersionLS);
}

DWORD64 ModuleAt(const void* pAddress, char (&szPath)[MAX_PATH]) {
    HMODULE hModule = nullptr;
    if (!GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            static_cast<const char*>(pAddress), &hModule)) {
        return 0;
    }
    GetModuleFileNameA(hModule, szPath, sizeof(szPath));
    return reinterpret_cast<DWORD64>(hModule);
}

void WriteModules(ReportFile& Report) {
    DWORD dwNeeded = 0;
    Report.Begin("Modules");
    if (K32EnumProcessModules(GetCurrentProcess(), g_Modules, sizeof(g_Modules), &dwNeeded)) {
        for (DWORD dwIndex = 0; dwIndex < dwNeeded / sizeof(HMODULE) && dwIndex < MODULES_AT_MOST; ++dwIndex) {
            WriteModule(Report, g_Modules[dwIndex]);
        }
    }
    Report.End("Modules");
}

}  // namespace sample
