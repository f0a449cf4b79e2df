#include <memory>

#include "log/Check.h"
#include "report/Records.h"
#include "report/XmlElements.h"

namespace crashvane {
namespace {

constexpr TextForm<unsigned long long> BytesForm = {"%I64u"};

}  // namespace

int Memory::LoadMemory(const TiXmlElement* pParent, const char* pszElementName) {
    int nResult = 0;
    int nRetCode = 0;
    const TiXmlElement* pElement = pParent->FirstChildElement(pszElementName);
    ZTLOG_PROCESS_ERROR(pElement);

    nRetCode = ReadFormattedAttribute(pElement, ZT_FIELD(TotalMemory), BytesForm);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadFormattedAttribute(pElement, ZT_FIELD(AvailMemory), BytesForm);
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int Memory::SaveMemory(TiXmlElement* pParent, const char* pszElementName) const {
    int nResult = 0;
    TiXmlNode* pRetCode = nullptr;
    auto pElement = std::make_unique<TiXmlElement>(pszElementName);
    ZTLOG_PROCESS_ERROR(pElement);

    SetFormattedAttribute(pElement.get(), ZT_FIELD(TotalMemory), BytesForm);
    SetFormattedAttribute(pElement.get(), ZT_FIELD(AvailMemory), BytesForm);

    pRetCode = pParent->LinkEndChild(pElement.release());
    ZTLOG_PROCESS_ERROR(pRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int VideoCard::LoadVideoCard(const TiXmlElement* pParent, const char* pszElementName) {
    int nResult = 0;
    int nRetCode = 0;
    const TiXmlElement* pElement = pParent->FirstChildElement(pszElementName);
    ZTLOG_PROCESS_ERROR(pElement);

    nRetCode = ReadTextElement(pElement, ZT_FIELD(VideoCardDescription));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(VideoCardDriver));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(VideoDriverVersion));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = VideoCardMemory.LoadMemory(pElement, "VideoCardMemory");
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int VideoCard::SaveVideoCard(TiXmlElement* pParent, const char* pszElementName) const {
    int nResult = 0;
    int nRetCode = 0;
    TiXmlNode* pRetCode = nullptr;
    auto pElement = std::make_unique<TiXmlElement>(pszElementName);
    ZTLOG_PROCESS_ERROR(pElement);

    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(VideoCardDescription));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(VideoCardDriver));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(VideoDriverVersion));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = VideoCardMemory.SaveMemory(pElement.get(), "VideoCardMemory");
    ZTLOG_PROCESS_ERROR(nRetCode);

    pRetCode = pParent->LinkEndChild(pElement.release());
    ZTLOG_PROCESS_ERROR(pRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int Machine::LoadMachine(const TiXmlElement* pParent) {
    int nResult = 0;
    int nRetCode = 0;
    const TiXmlElement* pElement = pParent->FirstChildElement("Machine");
    ZTLOG_PROCESS_ERROR(pElement);

    nRetCode = ReadTextElement(pElement, ZT_FIELD(IP));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(UUID));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(NewUUID));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(OS));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(Processor));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = PhysMemory.LoadMemory(pElement, "PhysMemory");
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = Pagefile.LoadMemory(pElement, "Pagefile");
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = VideoCardInfo.LoadVideoCard(pElement, "VideoCardInfo");
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int Machine::SaveMachine(TiXmlElement* pParent) const {
    int nResult = 0;
    int nRetCode = 0;
    TiXmlNode* pRetCode = nullptr;
    auto pElement = std::make_unique<TiXmlElement>("Machine");

    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(IP));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(UUID));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(NewUUID));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(OS));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(Processor));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = PhysMemory.SaveMemory(pElement.get(), "PhysMemory");
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = Pagefile.SaveMemory(pElement.get(), "Pagefile");
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = VideoCardInfo.SaveVideoCard(pElement.get(), "VideoCardInfo");
    ZTLOG_PROCESS_ERROR(nRetCode);

    pRetCode = pParent->LinkEndChild(pElement.release());
    ZTLOG_PROCESS_ERROR(pRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

}  // namespace crashvane
