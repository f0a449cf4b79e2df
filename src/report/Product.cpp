#include <memory>

#include "log/Check.h"
#include "report/Records.h"
#include "report/XmlElements.h"

namespace crashvane {

int Product::LoadProduct(const TiXmlElement* pParent) {
    int nResult = 0;
    int nRetCode = 0;
    const TiXmlElement* pElement = pParent->FirstChildElement("Product");
    ZTLOG_PROCESS_ERROR(pElement);

    nRetCode = ReadTextElement(pElement, ZT_FIELD(ProductName));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(ProductVersion));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(ProductVersionEx));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(ProductThreadType));
    ZTLOG_CHECK_ERROR(nRetCode);
    nRetCode = ReadTextElement(pElement, ZT_FIELD(ProductBitType));
    ZTLOG_CHECK_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int Product::SaveProduct(TiXmlElement* pParent) const {
    int nResult = 0;
    int nRetCode = 0;
    TiXmlNode* pRetCode = nullptr;
    auto pElement = std::make_unique<TiXmlElement>("Product");

    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(ProductName));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(ProductVersion));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(ProductVersionEx));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(ProductThreadType));
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = WriteTextElement(pElement.get(), ZT_FIELD(ProductBitType));
    ZTLOG_PROCESS_ERROR(nRetCode);

    pRetCode = pParent->LinkEndChild(pElement.release());
    ZTLOG_PROCESS_ERROR(pRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

}  // namespace crashvane
