#include <winsock2.h>  // has to stand before windows.h

#include "MachineFacts.h"

#include <cstdio>
#include <cstring>

namespace sample {

namespace {

constexpr DWORD SMBIOS_TABLES = 0x52534D42;  // "RSMB"
constexpr BYTE SMBIOS_SYSTEM = 1;            // the structure that holds the UUID
constexpr DWORD SMBIOS_UUID_AT = 8;
constexpr DWORD SMBIOS_HEADER = 8;  // in front of the first structure
constexpr DWORD UUID_SIZE = 16;

// A text value of the local machine's registry; left as it was when there is none.
template <std::size_t Size>
void ReadRegistry(char (&szValue)[Size], const char* pszKey, const char* pszName) {
    char szRead[Size] = {};
    DWORD dwSize = sizeof(szRead) - 1;
    HKEY hKey = nullptr;
    if (RegOpenKeyExA(HKEY_LOCAL_MACHINE, pszKey, 0, KEY_READ | KEY_WOW64_64KEY, &hKey) != ERROR_SUCCESS) {
        return;
    }
    if (RegQueryValueExA(hKey, pszName, nullptr, nullptr, reinterpret_cast<BYTE*>(szRead), &dwSize) == ERROR_SUCCESS) {
        std::memcpy(szValue, szRead, sizeof(szRead));
    }
    RegCloseKey(hKey);
}

void GatherOs(MachineFacts& Facts) {
    // Unlike GetVersionEx it tells the truth to programs without a manifest.
    const auto pfnGetVersion = reinterpret_cast<LONG(WINAPI*)(OSVERSIONINFOW*)>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion")));
    OSVERSIONINFOW Version = {};
    Version.dwOSVersionInfoSize = sizeof(Version);
    if (pfnGetVersion != nullptr && pfnGetVersion(&Version) == 0) {
        std::snprintf(Facts.szOs, sizeof(Facts.szOs), "Windows %lu.%lu.%lu", Version.dwMajorVersion,
                      Version.dwMinorVersion, Version.dwBuildNumber);
    }
}

void GatherIp(MachineFacts& Facts) {
    WSADATA Data = {};
    if (WSAStartup(MAKEWORD(2, 2), &Data) != 0) {
        return;
    }
    char szName[256] = {};
    if (gethostname(szName, sizeof(szName) - 1) == 0) {
        const hostent* const pHost = gethostbyname(szName);
        if (pHost != nullptr && pHost->h_addrtype == AF_INET && pHost->h_addr_list[0] != nullptr) {
            in_addr Address = {};
            std::memcpy(&Address, pHost->h_addr_list[0], sizeof(Address));
            std::snprintf(Facts.szIp, sizeof(Facts.szIp), "%s", inet_ntoa(Address));
        }
    }
    WSACleanup();
}

void FormatUuid(char (&szUuid)[64], const BYTE* pUuid) {
    // The first three groups are little-endian numbers.
    std::snprintf(szUuid, sizeof(szUuid), "%02X%02X%02X%02X-%02X%02X-%02X%02X-%02X%02X-%02X%02X%02X%02X%02X%02X",
                  pUuid[3], pUuid[2], pUuid[1], pUuid[0], pUuid[5], pUuid[4], pUuid[7], pUuid[6], pUuid[8], pUuid[9],
                  pUuid[10], pUuid[11], pUuid[12], pUuid[13], pUuid[14], pUuid[15]);
}

// Walks the firmware's structures: a type, a length, so many bytes, then texts up to two zero bytes.
void GatherFirmwareUuid(MachineFacts& Facts) {
    static BYTE Tables[65536];
    const DWORD dwSize = GetSystemFirmwareTable(SMBIOS_TABLES, 0, Tables, sizeof(Tables));
    if (dwSize > sizeof(Tables)) {
        return;
    }
    for (DWORD dwAt = SMBIOS_HEADER; dwAt + 4 <= dwSize && Tables[dwAt + 1] >= 4;) {
        if (Tables[dwAt] == SMBIOS_SYSTEM && Tables[dwAt + 1] >= SMBIOS_UUID_AT + UUID_SIZE &&
            dwAt + SMBIOS_UUID_AT + UUID_SIZE <= dwSize) {
            FormatUuid(Facts.szUuid, Tables + dwAt + SMBIOS_UUID_AT);
            return;
        }
        dwAt += Tables[dwAt + 1];
        while (dwAt + 1 < dwSize && (Tables[dwAt] != 0 || Tables[dwAt + 1] != 0)) {
            ++dwAt;
        }
        dwAt += 2;
    }
}

void GatherVideoCard(MachineFacts& Facts) {
    constexpr const char MACHINE[] = "\\Registry\\Machine\\";
    DISPLAY_DEVICEA Device = {};
    Device.cb = sizeof(Device);
    for (DWORD dwIndex = 0; EnumDisplayDevicesA(nullptr, dwIndex, &Device, 0); ++dwIndex) {
        if ((Device.StateFlags & DISPLAY_DEVICE_PRIMARY_DEVICE) == 0) {
            continue;
        }
        std::snprintf(Facts.szVideoCard, sizeof(Facts.szVideoCard), "%s", Device.DeviceString);
        if (_strnicmp(Device.DeviceKey, MACHINE, sizeof(MACHINE) - 1) == 0) {
            const char* const pszKey = Device.DeviceKey + sizeof(MACHINE) - 1;
            char Memory[sizeof(Facts.uVideoMemory)] = {};
            ReadRegistry(Facts.szVideoDriver, pszKey, "InstalledDisplayDrivers");
            ReadRegistry(Facts.szVideoDriverVersion, pszKey, "DriverVersion");
            char Bytes[sizeof(Memory) + 1] = {};
            ReadRegistry(Bytes, pszKey, "HardwareInformation.qwMemorySize");
            std::memcpy(&Facts.uVideoMemory, Bytes, sizeof(Facts.uVideoMemory));
        }
        return;
    }
}

void WriteMemory(ReportFile& Report, const char* pszName, unsigned long long uTotal, unsigned long long uAvailable) {
    Report.BeginAttributes(pszName);
    Report.Attribute("TotalMemory", "%I64u", uTotal);
    Report.Attribute("AvailMemory", "%I64u", uAvailable);
    Report.EndAttributes();
}

}  // namespace

void GatherMachineFacts(MachineFacts& Facts) {
    GatherOs(Facts);
    GatherIp(Facts);
    GatherFirmwareUuid(Facts);
    ReadRegistry(Facts.szNewUuid, "SOFTWARE\\Microsoft\\Cryptography", "MachineGuid");
    ReadRegistry(Facts.szProcessor, "HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0", "ProcessorNameString");
    GatherVideoCard(Facts);
}

void WriteMachine(ReportFile& Report, const MachineFacts& Facts) {
    MEMORYSTATUSEX Status = {};
    Status.dwLength = sizeof(Status);
    GlobalMemoryStatusEx(&Status);

    Report.Begin("Machine");
    Report.Text("IP", Facts.szIp);
    Report.Text("UUID", Facts.szUuid);
    Report.Text("NewUUID", Facts.szNewUuid);
    Report.Text("OS", Facts.szOs);
    Report.Text("Processor", Facts.szProcessor);
    WriteMemory(Report, "PhysMemory", Status.ullTotalPhys, Status.ullAvailPhys);
    WriteMemory(Report, "Pagefile", Status.ullTotalPageFile, Status.ullAvailPageFile);
    Report.Begin("VideoCardInfo");
    Report.Text("VideoCardDescription", Facts.szVideoCard);
    Report.Text("VideoCardDriver", Facts.szVideoDriver);
    Report.Text("VideoDriverVersion", Facts.szVideoDriverVersion);
    // How much of it is free, only the game's renderer knows.
    WriteMemory(Report, "VideoCardMemory", Facts.uVideoMemory, 0);
    Report.End("VideoCardInfo");
    Report.End("Machine");
}

}  // namespace sample
