// The guard in front of the XML library measures what the library's own tree shows: input is the document.
#include <tinyxml.h>

#include "Fuzz.h"
#include "report/XmlGuard.h"

namespace {

using crashvane::XmlShape;

void Measure(const TiXmlNode& Node, int nDepth, XmlShape& Shape) {
    for (const TiXmlNode* pChild = Node.FirstChild(); pChild != nullptr; pChild = pChild->NextSibling()) {
        const TiXmlElement* pElement = pChild->ToElement();
        if (pElement == nullptr) {
            continue;
        }
        int nAttributes = 0;
        for (const TiXmlAttribute* pEach = pElement->FirstAttribute(); pEach != nullptr; pEach = pEach->Next()) {
            ++nAttributes;
        }
        Shape.nDepth = std::max(Shape.nDepth, nDepth + 1);
        Shape.nAttributes = std::max(Shape.nAttributes, nAttributes);
        Measure(*pElement, nDepth + 1, Shape);
    }
}

XmlShape ShapeByLibrary(const std::string& strText, bool bCondense, int& nError) {
    TiXmlDocument Document;
    XmlShape Shape;
    TiXmlBase::SetCondenseWhiteSpace(bCondense);
    Document.SetTabSize(0);
    Document.Parse(strText.c_str(), nullptr, TIXML_ENCODING_LEGACY);
    nError = Document.ErrorId();
    Measure(Document, 0, Shape);
    return Shape;
}

void Compare(const XmlShape& Guard, const XmlShape& Library, int nError) {
    if (Guard.nDepth > crashvane::XmlMaxDepth || Guard.nAttributes > crashvane::XmlMaxAttributes) {
        // The guard stops at the limit. What it refuses must really be beyond it, but for repeated attributes.
        fuzz::Require(nError == TiXmlBase::TIXML_ERROR_PARSING_ELEMENT || Library.nDepth >= Guard.nDepth ||
                          Library.nAttributes >= Guard.nAttributes,
                      "what is refused is beyond a limit");
        return;
    }
    fuzz::Require(Guard.nDepth >= Library.nDepth, "no element is deeper than the guard saw");
    fuzz::Require(Guard.nAttributes >= Library.nAttributes, "no element has more attributes than the guard saw");
    // A repeated attribute ends the library's reading with this mistake; the guard does not look for it.
    if (nError != TiXmlBase::TIXML_ERROR_PARSING_ELEMENT) {
        fuzz::Require(Guard.nDepth == Library.nDepth, "the guard counts the depth that the library builds");
        fuzz::Require(Guard.nAttributes == Library.nAttributes, "the guard counts the attributes of the library");
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uSize) {
    const std::string strText = fuzz::UpToZero(fuzz::Input(pBytes, uSize).Rest());
    const XmlShape Guard = crashvane::MeasureXml(strText.c_str());
    const bool bWithinLimits =
        Guard.nDepth <= crashvane::XmlMaxDepth && Guard.nAttributes <= crashvane::XmlMaxAttributes;
    fuzz::Require(crashvane::IsXmlHarmless(strText.c_str()) == bWithinLimits, "harmless is within both limits");
    for (const bool bCondense : {true, false}) {
        int nError = 0;
        const XmlShape Library = ShapeByLibrary(strText, bCondense, nError);
        Compare(Guard, Library, nError);
    }
    return 0;
}
