// How one field of a record stands in the report file: as a child element's text or as an attribute.
//
// For the records alone. Nothing here logs: the record's own check does. Results are 1 for success, 0 for failure.
#pragma once

#include <tinyxml.h>

#include <string>

#include "util/Text.h"

namespace crashvane {

// A number's text form, the same for printing and scanning, in the formats of the Windows C runtime.
template <typename Value>
struct TextForm {
    const char* pszFormat;
};

// Name and member of a field, which are the same word.
#define ZT_FIELD(member) #member, member

// Appends an element with one text child, which is there for an empty text as well.
int WriteTextElement(TiXmlElement* pParent, const char* pszName, const std::string& strText);

// The text of pElement: empty without a child node, otherwise the value of the first one. Owned by the element.
const std::string& ElementText(const TiXmlElement* pElement);

// Fails when there is no such child element.
int ReadTextElement(const TiXmlElement* pParent, const char* pszName, std::string& strText);

// Scans one value. Fails when the text ends before a value could begin (an empty text, or the format's fixed
// beginning alone); a text that does not match succeeds and leaves the value.
int ScanValue(const char* pszText, const char* pszFormat, void* pValue);

// Fails when there is no such attribute.
int ReadTextAttribute(const TiXmlElement* pElement, const char* pszName, std::string& strText);

void SetTextAttribute(TiXmlElement* pElement, const char* pszName, const std::string& strText);

template <typename Value>
int WriteFormattedElement(TiXmlElement* pParent, const char* pszName, Value Number, TextForm<Value> Form) {
    return WriteTextElement(pParent, pszName, FormatText(Form.pszFormat, Number));
}

template <typename Value>
int ReadFormattedElement(const TiXmlElement* pParent, const char* pszName, Value& Number, TextForm<Value> Form) {
    const TiXmlElement* pElement = pParent->FirstChildElement(pszName);
    return pElement != nullptr && ScanValue(ElementText(pElement).c_str(), Form.pszFormat, &Number);
}

template <typename Value>
void SetFormattedAttribute(TiXmlElement* pElement, const char* pszName, Value Number, TextForm<Value> Form) {
    SetTextAttribute(pElement, pszName, FormatText(Form.pszFormat, Number));
}

template <typename Value>
int ReadFormattedAttribute(const TiXmlElement* pElement, const char* pszName, Value& Number, TextForm<Value> Form) {
    const char* pszText = pElement->Attribute(pszName);
    return pszText != nullptr && ScanValue(pszText, Form.pszFormat, &Number);
}

}  // namespace crashvane
