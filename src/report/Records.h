// The records of one crash, each of which reads itself from and writes itself to one element of the report file.
//
// Plain values: strings are bytes in the system's ANSI code page and owned by the record; every member is named as the
// element or attribute that carries it. Every operation answers 1 for success and 0 for failure, and logs a failed
// check under its own name. A load that fails leaves what it read before; a save that fails adds nothing. Running out
// of memory leaves as std::bad_alloc: CrashReporter catches it.
#pragma once

#include <cstdint>
#include <string>

class TiXmlElement;

namespace crashvane {

// Bytes.
struct Memory {
    unsigned long long TotalMemory = 0;
    unsigned long long AvailMemory = 0;

    int LoadMemory(const TiXmlElement* pParent, const char* pszElementName);
    int SaveMemory(TiXmlElement* pParent, const char* pszElementName) const;
};

// Memory counters of a process at one moment, in bytes.
struct MemoryProcess {
    unsigned long long WorkingSetSize = 0;
    unsigned long long PagefileUsage = 0;

    int LoadMemory(const TiXmlElement* pParent, const char* pszElementName);
    int SaveMemory(TiXmlElement* pParent, const char* pszElementName) const;
};

struct Exception {
    std::string ExceptionModuleName;
    unsigned int ExceptionCode = 0;
    std::string ExceptionDescription;
    std::uintptr_t ExceptionAddress = 0;
    std::string DumpFileName;  // path of the dump
    std::string DumpKey;
    long long ExceptionTime = 0;  // seconds since 1970-01-01 00:00 UTC
    long long TimeToFailure = 0;  // seconds
    std::string DumpGuid;
    std::string ProcessName;
    unsigned int ProcessInstance = 0;
    MemoryProcess ProcessMemUsed;
    MemoryProcess ProcessMemPeak;

    int LoadException(const TiXmlElement* pParent);
    int SaveException(TiXmlElement* pParent) const;
};

struct Product {
    std::string ProductName;
    std::string ProductVersion;
    std::string ProductVersionEx;
    std::string ProductThreadType;  // the file may lack it
    std::string ProductBitType;     // the file may lack it

    int LoadProduct(const TiXmlElement* pParent);
    int SaveProduct(TiXmlElement* pParent) const;
};

struct VideoCard {
    std::string VideoCardDescription;
    std::string VideoCardDriver;
    std::string VideoDriverVersion;
    Memory VideoCardMemory;

    int LoadVideoCard(const TiXmlElement* pParent, const char* pszElementName);
    int SaveVideoCard(TiXmlElement* pParent, const char* pszElementName) const;
};

struct Machine {
    std::string IP;
    std::string UUID;
    std::string NewUUID;
    std::string OS;
    std::string Processor;
    Memory PhysMemory;
    Memory Pagefile;
    VideoCard VideoCardInfo;

    int LoadMachine(const TiXmlElement* pParent);
    int SaveMachine(TiXmlElement* pParent) const;
};

// One module that was loaded in the crashed process.
struct Module {
    std::string FullPath;
    unsigned long long BaseOfImage = 0;
    unsigned long SizeOfImage = 0;    // bytes
    unsigned long TimeDateStamp = 0;  // the image's link time stamp
    std::string FileVersion;
    std::string ProductVersion;

    // Reads the "Module" element itself. It reads no machine: the name is the one that readers of the log know.
    int LoadMachine(const TiXmlElement* pElement);
    int SaveModule(TiXmlElement* pParent) const;
};

}  // namespace crashvane
