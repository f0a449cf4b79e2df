#include "Report.h"

#include <dbghelp.h>
#include <objbase.h>
#include <psapi.h>
#include <tlhelp32.h>

#include <cstdio>
#include <cstring>

#include "ModuleFacts.h"

namespace sample {

namespace {

decltype(&MiniDumpWriteDump) g_pfnWriteDump = nullptr;

const char* FileNameOf(const char* pszPath) {
    const char* const pszName = std::strrchr(pszPath, '\\');
    return pszName != nullptr ? pszName + 1 : pszPath;
}

// Seconds since 1970.
long long SecondsOf(const FILETIME& Time) {
    ULARGE_INTEGER Ticks = {};
    Ticks.LowPart = Time.dwLowDateTime;
    Ticks.HighPart = Time.dwHighDateTime;
    return static_cast<long long>(Ticks.QuadPart / 10000000) - 11644473600LL;
}

void Describe(char (&szText)[128], const EXCEPTION_RECORD& Record) {
    switch (Record.ExceptionCode) {
        case EXCEPTION_ACCESS_VIOLATION:
            std::snprintf(szText, sizeof(szText), "Access violation %s 0x%016I64X",
                          Record.ExceptionInformation[0] == 0   ? "reading"
                          : Record.ExceptionInformation[0] == 1 ? "writing"
                                                                : "executing",
                          static_cast<DWORD64>(Record.ExceptionInformation[1]));
            break;
        case EXCEPTION_STACK_OVERFLOW:
            std::snprintf(szText, sizeof(szText), "Stack overflow");
            break;
        case STATUS_NO_MEMORY:
            std::snprintf(szText, sizeof(szText), "Out of memory");
            break;
        case STATUS_FATAL_APP_EXIT:
            std::snprintf(szText, sizeof(szText), "The program aborted itself");
            break;
        default:
            std::snprintf(szText, sizeof(szText), "Exception 0x%08lX", Record.ExceptionCode);
            break;
    }
}

// Crashes of one kind get one key, whatever address the module was loaded at: module, place in it, code.
void FormKey(char (&szKey)[24], const char* pszModule, DWORD64 uOffset, DWORD dwCode) {
    DWORD64 uHash = 14695981039346656037ULL;
    char szPlace[MAX_PATH + 48] = {};
    std::snprintf(szPlace, sizeof(szPlace), "%s+%I64x:%lx", pszModule, uOffset, dwCode);
    for (const char* pszAt = szPlace; *pszAt != '\0'; ++pszAt) {
        uHash = (uHash ^ static_cast<unsigned char>(*pszAt)) * 1099511628211ULL;
    }
    std::snprintf(szKey, sizeof(szKey), "%016I64x", uHash);
}

// How many processes run from a file of this name, this one included: players start a game more than once.
DWORD InstancesOf(const char* pszName) {
    DWORD dwCount = 0;
    PROCESSENTRY32 Entry = {};
    Entry.dwSize = sizeof(Entry);
    const HANDLE hSnapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (hSnapshot == INVALID_HANDLE_VALUE) {
        return 0;
    }
    for (BOOL bMore = Process32First(hSnapshot, &Entry); bMore; bMore = Process32Next(hSnapshot, &Entry)) {
        dwCount += _stricmp(Entry.szExeFile, pszName) == 0 ? 1 : 0;
    }
    CloseHandle(hSnapshot);
    return dwCount;
}

void WriteProcessMemory(ReportFile& Report, const char* pszName, SIZE_T uPagefile, SIZE_T uWorkingSet) {
    Report.BeginAttributes(pszName);
    Report.Attribute("PagefileUsage", "%I64u", uPagefile);
    Report.Attribute("WorkingSetSize", "%I64u", uWorkingSet);
    Report.EndAttributes();
}

void WriteException(ReportFile& Report, const CrashPaths& Paths, const CrashMoment& Moment, const char* pszProcess) {
    char szModule[MAX_PATH] = {};
    char szDescription[128] = {};
    char szKey[24] = {};
    FILETIME Created = {};
    FILETIME Ignored = {};
    PROCESS_MEMORY_COUNTERS Memory = {};
    const EXCEPTION_RECORD& Record = *Moment.pException->ExceptionRecord;
    const DWORD64 uBase = ModuleAt(Record.ExceptionAddress, szModule);
    const auto uAddress = reinterpret_cast<DWORD64>(Record.ExceptionAddress);
    Describe(szDescription, Record);
    FormKey(szKey, FileNameOf(szModule), uAddress - uBase, Record.ExceptionCode);
    GetProcessTimes(GetCurrentProcess(), &Created, &Ignored, &Ignored, &Ignored);
    const long long nTime = SecondsOf(Moment.Time);
    K32GetProcessMemoryInfo(GetCurrentProcess(), &Memory, sizeof(Memory));

    Report.Begin("Exception");
    Report.Text("ExceptionModuleName", FileNameOf(szModule));
    Report.Number("ExceptionCode", "0x%I64x", Record.ExceptionCode);
    Report.Text("ExceptionDescription", szDescription);
    Report.Number("ExceptionAddress", "0X%016I64X", uAddress);
    Report.Text("DumpFileName", Paths.szDump);
    Report.Text("DumpKey", szKey);
    Report.Text("DumpGuid", Paths.szGuid);
    Report.Number("ExceptionTime", "%I64d", static_cast<unsigned long long>(nTime));
    Report.Number("TimeToFailure", "%I64d", static_cast<unsigned long long>(nTime - SecondsOf(Created)));
    Report.Text("ProcessName", pszProcess);
    Report.Number("ProcessInstance", "%I64u", InstancesOf(pszProcess));
    WriteProcessMemory(Report, "ProcessMemUsed", Memory.PagefileUsage, Memory.WorkingSetSize);
    WriteProcessMemory(Report, "ProcessMemPeak", Memory.PeakPagefileUsage, Memory.PeakWorkingSetSize);
    Report.End("Exception");
}

void WriteProduct(ReportFile& Report, const char* pszProgram) {
    char szFileVersion[VERSION_SIZE] = {};
    char szProductVersion[VERSION_SIZE] = {};
    ReadVersions(pszProgram, szFileVersion, szProductVersion);
    Report.Begin("Product");
    Report.Text("ProductName", FileNameOf(pszProgram));
    Report.Text("ProductVersion", szProductVersion);
    Report.Text("ProductVersionEx", "sample");
    Report.Text("ProductThreadType", "MultiThread");
    Report.Text("ProductBitType", "x64");
    Report.End("Product");
}

}  // namespace

void PrepareReport() {
    const HMODULE hDbgHelp = LoadLibraryExW(L"dbghelp.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (hDbgHelp != nullptr) {
        g_pfnWriteDump = reinterpret_cast<decltype(g_pfnWriteDump)>(
            reinterpret_cast<void*>(GetProcAddress(hDbgHelp, "MiniDumpWriteDump")));
    }
    PrepareModuleFacts();
}

void MakePaths(CrashPaths& Paths, const char* pszFolder) {
    GUID Guid = {};
    CoCreateGuid(&Guid);
    std::snprintf(Paths.szGuid, sizeof(Paths.szGuid), "{%08lX-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", Guid.Data1,
                  Guid.Data2, Guid.Data3, Guid.Data4[0], Guid.Data4[1], Guid.Data4[2], Guid.Data4[3], Guid.Data4[4],
                  Guid.Data4[5], Guid.Data4[6], Guid.Data4[7]);
    std::snprintf(Paths.szDump, sizeof(Paths.szDump), "%s\\%s.dmp", pszFolder, Paths.szGuid);
    std::snprintf(Paths.szReport, sizeof(Paths.szReport), "%s\\%s.xml", pszFolder, Paths.szGuid);
}

bool WriteDump(const char* pszPath, const CrashMoment& Moment) {
    if (g_pfnWriteDump == nullptr) {
        return false;
    }
    const HANDLE hFile =
        CreateFileA(pszPath, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (hFile == INVALID_HANDLE_VALUE) {
        return false;
    }
    MINIDUMP_EXCEPTION_INFORMATION Exception = {Moment.dwThread, Moment.pException, FALSE};
    const BOOL bWritten =
        g_pfnWriteDump(GetCurrentProcess(), GetCurrentProcessId(), hFile, MiniDumpNormal, &Exception, nullptr, nullptr);
    CloseHandle(hFile);
    return bWritten != FALSE;
}

bool WriteReport(const CrashPaths& Paths, const CrashMoment& Moment, const MachineFacts& Machine,
                 const CrashSettings& Settings) {
    static ReportFile Report(Paths.szReport);
    char szProgram[MAX_PATH] = {};
    GetModuleFileNameA(nullptr, szProgram, sizeof(szProgram));

    Report.Declaration();
    Report.BeginAttributes("CrashReporter");
    Report.Attribute("Project", Settings.strProject.c_str());
    Report.EndAttributesOpen();
    WriteException(Report, Paths, Moment, FileNameOf(szProgram));
    WriteProduct(Report, szProgram);
    WriteMachine(Report, Machine);
    WriteModules(Report);
    Report.Begin("Custom");
    for (const std::string& strFile : Settings.CustomFiles) {
        Report.Text("CustomFile", strFile.c_str());
    }
    for (const std::string& strInfo : Settings.CustomInfos) {
        Report.Text("CustomInfo", strInfo.c_str());
    }
    Report.End("Custom");
    Report.End("CrashReporter");
    return Report.Close();
}

}  // namespace sample
