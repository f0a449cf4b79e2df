#include "report/XmlGuard.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>

#include "report/XmlSyntax.h"

namespace crashvane {
namespace {

using namespace XmlSyntax;

class Scanner {
  public:
    XmlShape Scan(Position pAt) {
        pAt = SkipBlanks(pAt);
        while (pAt != nullptr && !IsOverLimit()) {
            if (*pAt == '<') {
                pAt = m_nOpen > 0 && pAt[1] == '/' ? EndTag(pAt) : Node(pAt);
            } else {
                pAt = m_nOpen > 0 ? SkipText(pAt) : nullptr;
            }
            pAt = SkipBlanks(pAt);
        }
        return m_Shape;
    }

  private:
    struct OpenElement {
        Position pName;
        std::size_t uLength;
    };

    [[nodiscard]] bool IsOverLimit() const {
        return m_Shape.nDepth > XmlMaxDepth || m_Shape.nAttributes > XmlMaxAttributes;
    }

    Position Node(Position pAt) {
        if (StartsWithAnyCase(pAt, "<?xml")) {
            return SkipDeclaration(pAt);
        }
        if (StartsWith(pAt, "<!--")) {
            return Behind(pAt + std::strlen("<!--"), "-->");
        }
        if (StartsWith(pAt, "<![CDATA[")) {
            return Behind(pAt + std::strlen("<![CDATA["), "]]>");
        }
        return IsNameStart(pAt[1]) ? StartTag(pAt) : Behind(pAt + 1, ">");
    }

    Position StartTag(Position pAt) {
        const Position pName = pAt + 1;
        pAt = SkipName(pName);
        const OpenElement Element = {pName, static_cast<std::size_t>(pAt - pName)};
        m_Shape.nDepth = (std::max)(m_Shape.nDepth, m_nOpen + 1);
        if (IsOverLimit()) {
            return nullptr;
        }
        for (int nAttributes = 1;; ++nAttributes) {
            pAt = SkipBlanks(pAt);
            if (pAt == nullptr) {
                return nullptr;
            }
            if (*pAt == '/') {
                return pAt[1] == '>' ? pAt + 2 : nullptr;
            }
            if (*pAt == '>') {
                m_Open[static_cast<std::size_t>(m_nOpen++)] = Element;
                return pAt + 1;
            }
            pAt = SkipAttribute(pAt);
            if (pAt != nullptr) {
                m_Shape.nAttributes = (std::max)(m_Shape.nAttributes, nAttributes);
            }
            if (IsOverLimit()) {
                return nullptr;
            }
        }
    }

    Position EndTag(Position pAt) {
        const OpenElement& Element = m_Open[static_cast<std::size_t>(--m_nOpen)];
        pAt += std::strlen("</");
        if (std::strncmp(pAt, Element.pName, Element.uLength) != 0) {
            return nullptr;
        }
        pAt = SkipBlanks(pAt + Element.uLength);
        return pAt != nullptr && *pAt == '>' ? pAt + 1 : nullptr;
    }

    std::array<OpenElement, XmlMaxDepth> m_Open;
    int m_nOpen = 0;
    XmlShape m_Shape;
};

}  // namespace

XmlShape MeasureXml(const char* pszText) {
    return Scanner().Scan(pszText);
}

bool IsXmlHarmless(const char* pszText) {
    const XmlShape Shape = MeasureXml(pszText);
    return Shape.nDepth <= XmlMaxDepth && Shape.nAttributes <= XmlMaxAttributes;
}

}  // namespace crashvane
