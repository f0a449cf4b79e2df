#include "report/CrashReporter.h"

#include <tinyxml.h>

#include <memory>
#include <new>
#include <utility>

#include "log/Check.h"
#include "report/XmlElements.h"
#include "report/XmlFile.h"

// Memory that ran out is logged like a failed check. Used in the handler of a function's own try block.
#define ZT_FAIL_OUT_OF_MEMORY()                            \
    do {                                                   \
        ZTLOG_CHECK_LINE("ZTLOG_PROCESS_ERROR", "memory"); \
        return 0;                                          \
    } while (false)

namespace crashvane {

int CrashReporter::Load(const std::string& strFileName) try {
    int nResult = 0;
    int nRetCode = 0;
    TiXmlDocument Document;
    const TiXmlElement* pElement = nullptr;

    ZTLOG_PROCESS_ERROR(!strFileName.empty());
    nRetCode = LoadXmlFile(strFileName, Document);
    ZTLOG_PROCESS_ERROR(nRetCode);
    pElement = Document.FirstChildElement("CrashReporter");
    ZTLOG_PROCESS_ERROR(pElement);
    nRetCode = ReadTextAttribute(pElement, ZT_FIELD(Project));
    ZTLOG_PROCESS_ERROR(nRetCode);

    nRetCode = Exception.LoadException(pElement);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = Product.LoadProduct(pElement);
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = Machine.LoadMachine(pElement);
    ZTLOG_PROCESS_ERROR(nRetCode);

    nRetCode = LoadVectorData(pElement, "Modules", "Module", [this](const TiXmlElement* p) { return LoadModule(p); });
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = LoadVectorData(pElement, "Custom", "CustomFile",
                              [this](const TiXmlElement* p) { return LoadStringA(p, CustomFiles); });
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = LoadVectorData(pElement, "Custom", "CustomInfo",
                              [this](const TiXmlElement* p) { return LoadStringA(p, CustomInfos); });
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
} catch (const std::bad_alloc&) {
    ZT_FAIL_OUT_OF_MEMORY();
}

int CrashReporter::LoadVectorData(const TiXmlElement* pRoot, const char* pszList, const char* pszItem,
                                  const ItemLoader& LoadItem) {
    int nResult = 0;
    int nRetCode = 0;
    const TiXmlElement* pItem = nullptr;
    const TiXmlElement* pElement = pRoot->FirstChildElement(pszList);
    ZTLOG_PROCESS_ERROR(pElement);

    pItem = pElement->FirstChildElement(pszItem);
    for (; pItem != nullptr; pItem = pItem->NextSiblingElement(pszItem)) {
        nRetCode = LoadItem(pItem);
        ZTLOG_PROCESS_ERROR(nRetCode);
    }

    nResult = 1;
Exit0:
    return nResult;
}

int CrashReporter::LoadModule(const TiXmlElement* pItem) {
    int nResult = 0;
    int nRetCode = 0;
    Module Loaded;

    nRetCode = Loaded.LoadMachine(pItem);
    ZTLOG_PROCESS_ERROR(nRetCode);
    Modules.push_back(std::move(Loaded));

    nResult = 1;
Exit0:
    return nResult;
}

int CrashReporter::LoadStringA(const TiXmlElement* pItem, std::vector<std::string>& List) {
    int nResult = 0;

    ZTLOG_PROCESS_ERROR(pItem);
    List.push_back(ElementText(pItem));

    nResult = 1;
Exit0:
    return nResult;
}

int CrashReporter::Save(const std::string& strFileName) const try {
    int nResult = 0;
    int nRetCode = 0;
    const TiXmlNode* pRetCode = nullptr;
    TiXmlDocument Document;
    auto pElement = std::make_unique<TiXmlElement>("CrashReporter");
    auto pDeclaration = std::make_unique<TiXmlDeclaration>("1.0", "gb2312", "");

    ZTLOG_PROCESS_ERROR(!strFileName.empty());
    TiXmlBase::SetCondenseWhiteSpace(false);
    pRetCode = Document.LinkEndChild(pDeclaration.release());
    ZTLOG_PROCESS_ERROR(pRetCode);
    SetTextAttribute(pElement.get(), ZT_FIELD(Project));

    nRetCode = Exception.SaveException(pElement.get());
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = Product.SaveProduct(pElement.get());
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = Machine.SaveMachine(pElement.get());
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = SaveModules(pElement.get());
    ZTLOG_PROCESS_ERROR(nRetCode);
    nRetCode = SaveCustomDatas(pElement.get());
    ZTLOG_PROCESS_ERROR(nRetCode);

    pRetCode = Document.LinkEndChild(pElement.release());
    ZTLOG_PROCESS_ERROR(pRetCode);
    nRetCode = SaveXmlFile(strFileName, Document);
    ZTLOG_PROCESS_ERROR(nRetCode);

    nResult = 1;
Exit0:
    return nResult;
} catch (const std::bad_alloc&) {
    ZT_FAIL_OUT_OF_MEMORY();
}

int CrashReporter::SaveModules(TiXmlElement* pRoot) const {
    int nResult = 0;
    int nRetCode = 0;
    const TiXmlNode* pRetCode = nullptr;
    auto pElement = std::make_unique<TiXmlElement>("Modules");

    for (const Module& One : Modules) {
        nRetCode = One.SaveModule(pElement.get());
        ZTLOG_PROCESS_ERROR(nRetCode);
    }
    pRetCode = pRoot->LinkEndChild(pElement.release());
    ZTLOG_PROCESS_ERROR(pRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

int CrashReporter::SaveCustomDatas(TiXmlElement* pRoot) const {
    int nResult = 0;
    int nRetCode = 0;
    const TiXmlNode* pRetCode = nullptr;
    auto pElement = std::make_unique<TiXmlElement>("Custom");

    for (const std::string& strFile : CustomFiles) {
        nRetCode = WriteTextElement(pElement.get(), "CustomFile", strFile);
        ZTLOG_PROCESS_ERROR(nRetCode);
    }
    for (const std::string& strInfo : CustomInfos) {
        nRetCode = WriteTextElement(pElement.get(), "CustomInfo", strInfo);
        ZTLOG_PROCESS_ERROR(nRetCode);
    }
    pRetCode = pRoot->LinkEndChild(pElement.release());
    ZTLOG_PROCESS_ERROR(pRetCode);

    nResult = 1;
Exit0:
    return nResult;
}

}  // namespace crashvane
