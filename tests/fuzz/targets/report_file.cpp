// A report that can be loaded is the same after it was saved and loaded again. Input: the file, or, behind a first "=",
// lines that stand for the fields of a well-formed one.
#include <sys/mman.h>
#include <sys/stat.h>
#include <tinyxml.h>
#include <unistd.h>

#include "Fuzz.h"
#include "report/CrashReporter.h"

namespace {

using crashvane::CrashReporter;

// A file in memory that has a name.
class ScratchFile {
  public:
    ScratchFile() : m_nFile(memfd_create("report", 0)), m_strName("/proc/self/fd/" + std::to_string(m_nFile)) {}

    void Set(const std::string& strBytes) const {
        fuzz::Require(ftruncate(m_nFile, 0) == 0 &&
                          pwrite(m_nFile, strBytes.data(), strBytes.size(), 0) == static_cast<ssize_t>(strBytes.size()),
                      "the scratch file can be written");
    }

    [[nodiscard]] std::string Get() const {
        struct stat Facts = {};
        fstat(m_nFile, &Facts);
        std::string strBytes(static_cast<std::size_t>(Facts.st_size), '\0');
        fuzz::Require(pread(m_nFile, strBytes.data(), strBytes.size(), 0) == Facts.st_size,
                      "the scratch file can be read");
        return strBytes;
    }

    [[nodiscard]] const std::string& Name() const { return m_strName; }

  private:
    int m_nFile;
    std::string m_strName;
};

void AddMemory(std::string& strXml, const char* pszName, const char* pszFirst, const char* pszSecond,
               fuzz::Input& Fields) {
    strXml += std::string("<") + pszName + " " + pszFirst + "=\"" + Fields.Line() + "\" " + pszSecond + "=\"";
    strXml += Fields.Line() + "\" />";
}

void AddTexts(std::string& strXml, std::initializer_list<const char*> Names, fuzz::Input& Fields) {
    for (const char* pszName : Names) {
        strXml += std::string("<") + pszName + ">" + Fields.Line() + "</" + pszName + ">";
    }
}

// What stands in the fields is not escaped: it may be anything that belongs there, and anything that does not.
std::string FormReport(fuzz::Input& Fields) {
    std::string strXml = "<CrashReporter Project=\"" + Fields.Line() + "\"><Exception>";
    AddTexts(strXml,
             {"ExceptionModuleName", "ExceptionCode", "ExceptionDescription", "ExceptionAddress", "DumpFileName",
              "DumpKey", "DumpGuid", "ExceptionTime", "TimeToFailure", "ProcessName", "ProcessInstance"},
             Fields);
    AddMemory(strXml, "ProcessMemUsed", "PagefileUsage", "WorkingSetSize", Fields);
    AddMemory(strXml, "ProcessMemPeak", "PagefileUsage", "WorkingSetSize", Fields);
    strXml += "</Exception><Product>";
    AddTexts(strXml, {"ProductName", "ProductVersion", "ProductVersionEx", "ProductThreadType", "ProductBitType"},
             Fields);
    strXml += "</Product><Machine>";
    AddTexts(strXml, {"IP", "UUID", "NewUUID", "OS", "Processor"}, Fields);
    AddMemory(strXml, "PhysMemory", "TotalMemory", "AvailMemory", Fields);
    AddMemory(strXml, "Pagefile", "TotalMemory", "AvailMemory", Fields);
    strXml += "<VideoCardInfo>";
    AddTexts(strXml, {"VideoCardDescription", "VideoCardDriver", "VideoDriverVersion"}, Fields);
    AddMemory(strXml, "VideoCardMemory", "TotalMemory", "AvailMemory", Fields);
    strXml += "</VideoCardInfo></Machine><Modules><Module";
    for (const char* pszName :
         {"FullPath", "BaseOfImage", "SizeOfImage", "TimeDateStamp", "FileVersion", "ProductVersion"}) {
        strXml += std::string(" ") + pszName + "='" + Fields.Line() + "'";
    }
    strXml += "/></Modules><Custom>";
    while (!Fields.IsEmpty()) {
        AddTexts(strXml, {"CustomFile", "CustomInfo"}, Fields);
    }
    return strXml + "</Custom></CrashReporter>";
}

// The library drops a text that is nothing but white space; any other stays as it was saved.
std::string Kept(const std::string& strText) {
    return strText.find_first_not_of(" \t\r\n\v\f") == std::string::npos ? std::string() : strText;
}

void Compare(const std::string& strBefore, const std::string& strAfter) {
    fuzz::RequireSame(strAfter, Kept(strBefore), "a text is the same after saving and loading");
}

void Compare(const crashvane::Memory& Before, const crashvane::Memory& After) {
    fuzz::Require(Before.TotalMemory == After.TotalMemory && Before.AvailMemory == After.AvailMemory,
                  "amounts of memory are the same");
}

void Compare(const crashvane::MemoryProcess& Before, const crashvane::MemoryProcess& After) {
    fuzz::Require(Before.WorkingSetSize == After.WorkingSetSize && Before.PagefileUsage == After.PagefileUsage,
                  "a process's memory is the same");
}

void Compare(const crashvane::Exception& Before, const crashvane::Exception& After) {
    Compare(Before.ExceptionModuleName, After.ExceptionModuleName);
    Compare(Before.ExceptionDescription, After.ExceptionDescription);
    Compare(Before.DumpFileName, After.DumpFileName);
    Compare(Before.DumpKey, After.DumpKey);
    Compare(Before.DumpGuid, After.DumpGuid);
    Compare(Before.ProcessName, After.ProcessName);
    fuzz::Require(Before.ExceptionCode == After.ExceptionCode, "the code is the same");
    fuzz::Require(Before.ExceptionAddress == After.ExceptionAddress, "the address is the same");
    fuzz::Require(Before.ExceptionTime == After.ExceptionTime, "the time is the same");
    fuzz::Require(Before.TimeToFailure == After.TimeToFailure, "the time to failure is the same");
    fuzz::Require(Before.ProcessInstance == After.ProcessInstance, "the instance is the same");
    Compare(Before.ProcessMemUsed, After.ProcessMemUsed);
    Compare(Before.ProcessMemPeak, After.ProcessMemPeak);
}

void Compare(const crashvane::Product& Before, const crashvane::Product& After) {
    Compare(Before.ProductName, After.ProductName);
    Compare(Before.ProductVersion, After.ProductVersion);
    Compare(Before.ProductVersionEx, After.ProductVersionEx);
    Compare(Before.ProductThreadType, After.ProductThreadType);
    Compare(Before.ProductBitType, After.ProductBitType);
}

void Compare(const crashvane::Machine& Before, const crashvane::Machine& After) {
    Compare(Before.IP, After.IP);
    Compare(Before.UUID, After.UUID);
    Compare(Before.NewUUID, After.NewUUID);
    Compare(Before.OS, After.OS);
    Compare(Before.Processor, After.Processor);
    Compare(Before.PhysMemory, After.PhysMemory);
    Compare(Before.Pagefile, After.Pagefile);
    Compare(Before.VideoCardInfo.VideoCardDescription, After.VideoCardInfo.VideoCardDescription);
    Compare(Before.VideoCardInfo.VideoCardDriver, After.VideoCardInfo.VideoCardDriver);
    Compare(Before.VideoCardInfo.VideoDriverVersion, After.VideoCardInfo.VideoDriverVersion);
    Compare(Before.VideoCardInfo.VideoCardMemory, After.VideoCardInfo.VideoCardMemory);
}

// Attributes keep white space.
void Compare(const crashvane::Module& Before, const crashvane::Module& After) {
    fuzz::RequireSame(After.FullPath, Before.FullPath, "a module's path is the same");
    fuzz::RequireSame(After.FileVersion, Before.FileVersion, "a module's file version is the same");
    fuzz::RequireSame(After.ProductVersion, Before.ProductVersion, "a module's product version is the same");
    fuzz::Require(Before.BaseOfImage == After.BaseOfImage && Before.SizeOfImage == After.SizeOfImage &&
                      Before.TimeDateStamp == After.TimeDateStamp,
                  "a module's numbers are the same");
}

template <typename Item>
void CompareLists(const std::vector<Item>& Before, const std::vector<Item>& After) {
    fuzz::Require(Before.size() == After.size(), "a list is as long as it was");
    for (std::size_t uAt = 0; uAt < Before.size(); ++uAt) {
        Compare(Before[uAt], After[uAt]);
    }
}

void Compare(const CrashReporter& Before, const CrashReporter& After) {
    fuzz::RequireSame(After.Project, Before.Project, "the project is the same");
    Compare(Before.Exception, After.Exception);
    Compare(Before.Product, After.Product);
    Compare(Before.Machine, After.Machine);
    CompareLists(Before.Modules, After.Modules);
    CompareLists(Before.CustomFiles, After.CustomFiles);
    CompareLists(Before.CustomInfos, After.CustomInfos);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uSize) {
    static const ScratchFile First;
    static const ScratchFile Second;
    static const ScratchFile Third;
    fuzz::Input Given(pBytes, uSize);
    const bool bFields = uSize > 0 && pBytes[0] == '=';
    if (bFields) {
        Given.Byte();
    }
    CrashReporter Before;
    CrashReporter After;
    First.Set(bFields ? FormReport(Given) : Given.Rest());
    TiXmlBase::SetCondenseWhiteSpace(true);  // as in a process that has saved nothing yet
    if (Before.Load(First.Name()) == 0) {
        return 0;
    }
    fuzz::Require(Before.Save(Second.Name()) == 1, "what was loaded can be saved");
    fuzz::Require(After.Load(Second.Name()) == 1, "what was saved can be loaded");
    Compare(Before, After);
    fuzz::Require(After.Save(Third.Name()) == 1, "it can be saved again");
    // Texts of nothing but white space are gone by now: from here on not a byte changes.
    CrashReporter Last;
    fuzz::Require(Last.Load(Third.Name()) == 1 && Last.Save(Second.Name()) == 1, "and loaded and saved again");
    fuzz::RequireSame(Second.Get(), Third.Get(), "a saved report that was loaded is saved byte for byte");
    return 0;
}
