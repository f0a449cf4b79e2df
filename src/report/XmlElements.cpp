#include "report/XmlElements.h"

#include <cctype>
#include <cstddef>
#include <cstdio>
#include <cstring>
#include <memory>

namespace crashvane {
namespace {

// Windows answers EOF then, Wine's runtime answers 0 unless the text is empty: decided here, so that both agree.
bool EndsBeforeValue(const char* pszText, const char* pszFormat) {
    std::size_t uAt = 0;
    while (pszFormat[uAt] != '%' && pszText[uAt] == pszFormat[uAt]) {
        ++uAt;
    }
    if (pszFormat[uAt] == '%') {
        while (std::isspace(static_cast<unsigned char>(pszText[uAt])) != 0) {
            ++uAt;
        }
    }
    return pszText[uAt] == '\0';
}

}  // namespace

int WriteTextElement(TiXmlElement* pParent, const char* pszName, const std::string& strText) {
    auto pElement = std::make_unique<TiXmlElement>(pszName);
    auto pText = std::make_unique<TiXmlText>(strText);
    return pElement->LinkEndChild(pText.release()) != nullptr && pParent->LinkEndChild(pElement.release()) != nullptr;
}

const std::string& ElementText(const TiXmlElement* pElement) {
    static const std::string NoText;
    const TiXmlNode* pFirst = pElement->FirstChild();
    return pFirst != nullptr ? pFirst->ValueStr() : NoText;
}

int ReadTextElement(const TiXmlElement* pParent, const char* pszName, std::string& strText) {
    const TiXmlElement* pElement = pParent->FirstChildElement(pszName);
    if (pElement == nullptr) {
        return 0;
    }
    strText = ElementText(pElement);
    return 1;
}

int ScanValue(const char* pszText, const char* pszFormat, void* pValue) {
    // _snscanf is the Windows runtime's; plain sscanf would be the compiler's own, which stops at the largest number
    // where Windows wraps round.
    return !EndsBeforeValue(pszText, pszFormat) && _snscanf(pszText, std::strlen(pszText), pszFormat, pValue) != EOF;
}

int ReadTextAttribute(const TiXmlElement* pElement, const char* pszName, std::string& strText) {
    const std::string* pstrValue = pElement->Attribute(std::string(pszName));
    if (pstrValue == nullptr) {
        return 0;
    }
    strText = *pstrValue;
    return 1;
}

void SetTextAttribute(TiXmlElement* pElement, const char* pszName, const std::string& strText) {
    pElement->SetAttribute(pszName, strText);
}

}  // namespace crashvane
