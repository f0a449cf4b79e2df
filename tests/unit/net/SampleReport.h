// A report in which every field that is sent has a value of its own, and a collector that holds it.
#pragma once

#include <string>

#include "collection/Collection.h"

namespace crashvane {

constexpr unsigned long long MEBIBYTE = 1024 * 1024;

class SampleCollection : public Collection {
  public:
    SampleCollection() {
        FillException(m_CrashReporter.Exception);
        FillMachine(m_CrashReporter.Machine);
        m_CrashReporter.Product.ProductName = "Client.exe";
        m_CrashReporter.Product.ProductVersion = "1.2.3_PAK";
        m_CrashReporter.Product.ProductVersionEx = "4.5 live";
        m_CrashReporter.Product.ProductThreadType = "multi";
        m_CrashReporter.Product.ProductBitType = "x64";
        m_CrashReporter.CustomInfos = {"a", "b=1"};
        m_strAccount = "the account";
        m_strRoleName = "the role";
        m_strRegionName = "the region";
        m_strServerName = "the server";
    }

    int GetProjectImgId() override { return 135; }
    const std::string& GetProjectName() override { return m_strProjectName; }

  private:
    static void FillException(Exception& Crash) {
        Crash.ExceptionModuleName = "engine.dll";
        Crash.DumpKey = "KEY-1";
        Crash.DumpGuid = "GUID-2";
        Crash.ProcessName = "ClientX64.exe";
        Crash.ProcessInstance = 3000000000u;
        Crash.TimeToFailure = 7325;
        Crash.ProcessMemUsed.WorkingSetSize = 11 * MEBIBYTE;
        Crash.ProcessMemUsed.PagefileUsage = 12 * MEBIBYTE;
        Crash.ProcessMemPeak.WorkingSetSize = 13 * MEBIBYTE;
        Crash.ProcessMemPeak.PagefileUsage = 14 * MEBIBYTE;
    }

    static void FillMachine(Machine& Computer) {
        Computer.UUID = "UUID-3";
        Computer.NewUUID = "NEW-4";
        Computer.OS = "Windows 10";
        Computer.Processor = "Some CPU";
        Computer.PhysMemory = {3072 * MEBIBYTE, 1048575};
        Computer.Pagefile = {4096 * MEBIBYTE, 2 * MEBIBYTE - 1};
        Computer.VideoCardInfo.VideoCardDescription = "Some card";
        Computer.VideoCardInfo.VideoCardDriver = "card.sys";
        Computer.VideoCardInfo.VideoDriverVersion = "31.0";
        Computer.VideoCardInfo.VideoCardMemory = {2048 * MEBIBYTE, 1024 * MEBIBYTE};
    }

    std::string m_strProjectName = "SAMPLE";
};

}  // namespace crashvane
