#include <memory>

#include "log/Check.h"
#include "report/Records.h"
#include "report/XmlElements.h"

namespace crashvane {
namespace {

constexpr TextForm<unsigned long long> AddressForm = {"0x%I64x"};
constexpr TextForm<unsigned long> SizeForm = {"0x%lx"};
constexpr TextForm<unsigned long> StampForm = {"%lu"};

}  // namespace

int Module::LoadMachine(const TiXmlElement* pElement) {
    int nResult = 0;
    int nRetCode = 0;

    nRetCode = ReadTextAttribute(pElement, ZT_FIELD(FullPath));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadFormattedAttribute(pElement, ZT_FIELD(BaseOfImage), AddressForm);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadFormattedAttribute(pElement, ZT_FIELD(SizeOfImage), SizeForm);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadFormattedAttribute(pElement, ZT_FIELD(TimeDateStamp), StampForm);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextAttribute(pElement, ZT_FIELD(FileVersion));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextAttribute(pElement, ZT_FIELD(ProductVersion));
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int Module::SaveModule(TiXmlElement* pParent) const {
    int nResult = 0;
    TiXmlNode* pRetCode = nullptr;
    auto pElement = std::make_unique<TiXmlElement>("Module");

    SetTextAttribute(pElement.get(), ZT_FIELD(FullPath));
    SetFormattedAttribute(pElement.get(), ZT_FIELD(BaseOfImage), AddressForm);
    SetFormattedAttribute(pElement.get(), ZT_FIELD(SizeOfImage), SizeForm);
    SetFormattedAttribute(pElement.get(), ZT_FIELD(TimeDateStamp), StampForm);
    SetTextAttribute(pElement.get(), ZT_FIELD(FileVersion));
    SetTextAttribute(pElement.get(), ZT_FIELD(ProductVersion));

    pRetCode = pParent->LinkEndChild(pElement.release());
    ZTLOG_PROCESS_ERROR(pRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

}  // namespace crashvane
