#include <memory>

#include "log/Check.h"
#include "report/Records.h"
#include "report/XmlElements.h"

namespace crashvane {
namespace {

constexpr TextForm<unsigned int> CodeForm = {"0x%x"};
constexpr TextForm<void*> AddressForm = {"0X%p"};
constexpr TextForm<long long> TimeForm = {"%I64d"};
constexpr TextForm<unsigned int> InstanceForm = {"%u"};
constexpr TextForm<unsigned long long> BytesForm = {"%I64u"};

// The runtime prints and scans an address as a pointer only.
int ReadAddressElement(const TiXmlElement* pParent, const char* pszName, std::uintptr_t& uAddress) {
    void* pAddress = reinterpret_cast<void*>(uAddress);
    const int nRetCode = ReadFormattedElement(pParent, pszName, pAddress, AddressForm);
    uAddress = reinterpret_cast<std::uintptr_t>(pAddress);
    return nRetCode;
}

int WriteAddressElement(TiXmlElement* pParent, const char* pszName, std::uintptr_t uAddress) {
    return WriteFormattedElement(pParent, pszName, reinterpret_cast<void*>(uAddress), AddressForm);
}

}  // namespace

int MemoryProcess::LoadMemory(const TiXmlElement* pParent, const char* pszElementName) {
    int nResult = 0;
    int nRetCode = 0;
    const TiXmlElement* pElement = pParent->FirstChildElement(pszElementName);
    ZTLOG_PROCESS_ERROR(pElement);

    nRetCode = ReadFormattedAttribute(pElement, ZT_FIELD(PagefileUsage), BytesForm);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadFormattedAttribute(pElement, ZT_FIELD(WorkingSetSize), BytesForm);
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int MemoryProcess::SaveMemory(TiXmlElement* pParent, const char* pszElementName) const {
    int nResult = 0;
    TiXmlNode* pRetCode = nullptr;
    auto pElement = std::make_unique<TiXmlElement>(pszElementName);
    ZTLOG_PROCESS_ERROR(pElement);

    SetFormattedAttribute(pElement.get(), ZT_FIELD(PagefileUsage), BytesForm);
    SetFormattedAttribute(pElement.get(), ZT_FIELD(WorkingSetSize), BytesForm);

    pRetCode = pParent->LinkEndChild(pElement.release());
    ZTLOG_PROCESS_ERROR(pRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int Exception::LoadException(const TiXmlElement* pParent) {
    int nResult = 0;
    int nRetCode = 0;
    const TiXmlElement* pElement = pParent->FirstChildElement("Exception");
    ZTLOG_PROCESS_ERROR(pElement);

    nRetCode = ReadTextElement(pElement, ZT_FIELD(ExceptionModuleName));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadFormattedElement(pElement, ZT_FIELD(ExceptionCode), CodeForm);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(ExceptionDescription));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadAddressElement(pElement, ZT_FIELD(ExceptionAddress));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(DumpFileName));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(DumpKey));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadFormattedElement(pElement, ZT_FIELD(ExceptionTime), TimeForm);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadFormattedElement(pElement, ZT_FIELD(TimeToFailure), TimeForm);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(DumpGuid));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(ProcessName));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadFormattedElement(pElement, ZT_FIELD(ProcessInstance), InstanceForm);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ProcessMemUsed.LoadMemory(pElement, "ProcessMemUsed");
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ProcessMemPeak.LoadMemory(pElement, "ProcessMemPeak");
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

// The file's order is its own: DumpGuid stands before the times, not behind them as in the record.
int Exception::SaveException(TiXmlElement* pParent) const {
    int nResult = 0;
    int nRetCode = 0;
    TiXmlNode* pRetCode = nullptr;
    auto pElement = std::make_unique<TiXmlElement>("Exception");

    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(ExceptionModuleName));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteFormattedElement(pElement.get(), ZT_FIELD(ExceptionCode), CodeForm);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(ExceptionDescription));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteAddressElement(pElement.get(), ZT_FIELD(ExceptionAddress));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(DumpFileName));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(DumpKey));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(DumpGuid));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteFormattedElement(pElement.get(), ZT_FIELD(ExceptionTime), TimeForm);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteFormattedElement(pElement.get(), ZT_FIELD(TimeToFailure), TimeForm);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(ProcessName));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteFormattedElement(pElement.get(), ZT_FIELD(ProcessInstance), InstanceForm);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ProcessMemUsed.SaveMemory(pElement.get(), "ProcessMemUsed");
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ProcessMemPeak.SaveMemory(pElement.get(), "ProcessMemPeak");
    ZTLOG_PROCESS_ERROR(nRetCode);

    pRetCode = pParent->LinkEndChild(pElement.release());
    ZTLOG_PROCESS_ERROR(pRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

}  // namespace crashvane
