#include "report/XmlGuard.h"

#include <gtest/gtest.h>
#include <tinyxml.h>

#include <chrono>
#include <random>
#include <string>
#include <vector>

namespace crashvane {
namespace {

std::string Repeated(const std::string& strText, int nTimes) {
    std::string strResult;
    for (int n = 0; n < nTimes; ++n) {
        strResult += strText;
    }
    return strResult;
}

int DepthOf(const std::string& strText) {
    return MeasureXml(strText.c_str()).nDepth;
}
int AttributesOf(const std::string& strText) {
    return MeasureXml(strText.c_str()).nAttributes;
}

TEST(XmlGuard, CountsElementsInEachOther) {
    EXPECT_EQ(DepthOf(""), 0);
    EXPECT_EQ(DepthOf("text"), 0);
    EXPECT_EQ(DepthOf("<a/>"), 1);
    EXPECT_EQ(DepthOf("<a><b/><c>text</c></a>"), 2);
    EXPECT_EQ(DepthOf("<a><b><c/></b></a><d/>"), 3);
    EXPECT_EQ(DepthOf("<a></a><b></b><c></c>"), 1);
    EXPECT_EQ(DepthOf("<a><b></b ><c></c\n><d/></a>"), 2);
}

TEST(XmlGuard, CountsTheAttributesOfTheElementThatHasMost) {
    EXPECT_EQ(AttributesOf("<a></a>"), 0);
    EXPECT_EQ(AttributesOf("<a b='1'><c d='1' e=\"2\" f=3 /></a>"), 3);
}

TEST(XmlGuard, LooksIntoNoComment) {
    EXPECT_EQ(DepthOf("<!-- <a><b> --><c/>"), 1);
    EXPECT_EQ(DepthOf("<c><!--><a><b> - -- > --></c>"), 1);
    EXPECT_EQ(DepthOf("<c><!----><a/></c>"), 2);
    EXPECT_EQ(DepthOf("<c><!-- <a><b></c>"), 1);
}

TEST(XmlGuard, LooksIntoNoCharacterData) {
    EXPECT_EQ(DepthOf("<c><![CDATA[<a><b>]] ]>]]></c>"), 1);
    EXPECT_EQ(DepthOf("<c><![CDATA[<a>]]><d/></c>"), 2);
    EXPECT_EQ(DepthOf("<c><![cdata[<a>]]><d/></c>"), 2) << "in lower case it ends at the first >";
}

TEST(XmlGuard, LooksIntoNoQuotes) {
    EXPECT_EQ(DepthOf("<c d='<a><b>' e=\"'<a>\" />"), 1);
    EXPECT_EQ(AttributesOf("<c d='e=\"1\" f=\"2\"' />"), 1);
}

TEST(XmlGuard, LooksIntoNoDeclaration) {
    EXPECT_EQ(DepthOf("<?xml version=\"<a><b>\" ?><c/>"), 1);
    EXPECT_EQ(DepthOf("<?XML encoding='>' standalone='<a>'?><c><?xml version='<d>' ?></c>"), 1);
    EXPECT_EQ(DepthOf("<c><?php '<a>' ?></a></c>"), 1) << "no declaration: ends at the first >";
}

TEST(XmlGuard, FollowsNumericReferencesOverQuotesAndTags) {
    EXPECT_EQ(DepthOf("<c d='&#' ><b x='&#12;'/></c>"), 1) << "not digits up to the semicolon: the library gives up";
    EXPECT_EQ(DepthOf("<c>&#<a></a>#1;</c>"), 1);
    EXPECT_EQ(DepthOf("<c>&#x41;<a/></c>"), 2);
    EXPECT_EQ(DepthOf("<c>&amp;<a/>&nonsense;<b/></c>"), 2);
    EXPECT_EQ(DepthOf("<c>&#65<a/></c>"), 1);
}

TEST(XmlGuard, StopsWhereTheLibraryGivesUp) {
    EXPECT_EQ(DepthOf("<a><b></a></b><c><d><e>"), 2);
    EXPECT_EQ(DepthOf("<a b='1' c><d><e/></d></a>"), 1);
    EXPECT_EQ(DepthOf("<a b=x'y'><c/></a>"), 1);
    EXPECT_EQ(DepthOf("text<a/>"), 0);
}

TEST(XmlGuard, RefusesFromTheTwoHundredAndFirstLevelOn) {
    EXPECT_TRUE(IsXmlHarmless((Repeated("<a>", 200) + Repeated("</a>", 200)).c_str()));
    EXPECT_FALSE(IsXmlHarmless((Repeated("<a>", 200) + "<a/>" + Repeated("</a>", 200)).c_str()));
    EXPECT_FALSE(IsXmlHarmless(Repeated("<a>", 1000000).c_str()));
    EXPECT_TRUE(IsXmlHarmless(("<r>" + Repeated(Repeated("<a>", 199) + Repeated("</a>", 199), 20) + "</r>").c_str()));
}

TEST(XmlGuard, RefusesFromTheThousandAndFirstAttributeOn) {
    std::string strAttributes;
    for (int n = 0; n < 1000; ++n) {
        strAttributes += " a" + std::to_string(n) + "=''";
    }
    EXPECT_TRUE(IsXmlHarmless(("<r><e" + strAttributes + "/><e" + strAttributes + "/></r>").c_str()));
    EXPECT_FALSE(IsXmlHarmless(("<r><e" + strAttributes + " last='' /></r>").c_str()));
    EXPECT_FALSE(IsXmlHarmless(("<r><e" + strAttributes + " last='' ").c_str()));
}

// Depth and attributes of the tree that the library built, complete or not.
XmlShape ShapeOf(const TiXmlNode& Node, int nDepth) {
    XmlShape Shape;
    for (const TiXmlNode* pChild = Node.FirstChild(); pChild != nullptr; pChild = pChild->NextSibling()) {
        const bool bElement = pChild->ToElement() != nullptr;
        XmlShape Inner = ShapeOf(*pChild, bElement ? nDepth + 1 : nDepth);
        if (bElement) {
            int nAttributes = 0;
            const TiXmlAttribute* pAttribute = pChild->ToElement()->FirstAttribute();
            for (; pAttribute != nullptr; pAttribute = pAttribute->Next()) {
                ++nAttributes;
            }
            Inner.nDepth = (std::max)(Inner.nDepth, nDepth + 1);
            Inner.nAttributes = (std::max)(Inner.nAttributes, nAttributes);
        }
        Shape.nDepth = (std::max)(Shape.nDepth, Inner.nDepth);
        Shape.nAttributes = (std::max)(Shape.nAttributes, Inner.nAttributes);
    }
    return Shape;
}

// Counts how many of the documents the library took for well-formed, so that the caller sees both kinds were there.
int CompareWithTheLibrary(const std::vector<std::string>& Documents) {
    int nWellFormed = 0;
    for (const std::string& strText : Documents) {
        for (const bool bCondense : {true, false}) {
            TiXmlBase::SetCondenseWhiteSpace(bCondense);
            TiXmlDocument Document;
            Document.Parse(strText.c_str(), nullptr, TIXML_ENCODING_LEGACY);
            const XmlShape Expected = ShapeOf(Document, 0);
            const XmlShape Measured = MeasureXml(strText.c_str());
            EXPECT_EQ(Measured.nDepth, Expected.nDepth) << strText;
            EXPECT_EQ(Measured.nAttributes, Expected.nAttributes) << strText;
            nWellFormed += Document.Error() ? 0 : 1;
        }
        if (testing::Test::HasFailure()) {
            break;
        }
    }
    TiXmlBase::SetCondenseWhiteSpace(true);
    return nWellFormed;
}

// A piece of a document: mostly harmless, sometimes anything. Attribute names are never repeated, since the guard does
// not look for repetitions (it may measure more than the library then, never less).
std::string Piece(std::mt19937& Random, int nAttribute) {
    static const std::vector<std::string> Pieces = {"<a>",        "</a>",       "<bb>",
                                                    "</bb>",      "<c/>",       "<a ",
                                                    "<bb\n",      ">",          "/>",
                                                    " />",        "</",         "<",
                                                    "/",          "=",          "'",
                                                    "\"",         "&#",         "&#x",
                                                    "&#x41;",     "&#65;",      "&amp;",
                                                    "&",          "#",          "x",
                                                    ";",          "12",         "text",
                                                    " ",          "\r",         "\n",
                                                    "\t\v\f",     "<!--",       "-->",
                                                    "--",         "<![CDATA[",  "]]>",
                                                    "]",          "<!",         "<!DOCTYPE a [<!ENTITY b>]>",
                                                    "<?xml",      "<?XmL ",     "?>",
                                                    "<?pi",       "\xD6",       "\xEF\xBB\xBF",
                                                    "\x7F",       "<_",         "<a:b.c-d>",
                                                    "</a:b.c-d>", "<\xD6\xD0>", "</\xD6\xD0>",
                                                    "version",    "-",          ".",
                                                    ":"};
    const std::string strName = std::to_string(nAttribute);
    switch (std::uniform_int_distribution<int>(0, 7)(Random)) {
        case 0:
            return " n" + strName + "='v' ";
        case 1:
            return " m" + strName + "=v ";
        case 2:
            return " VERSION" + strName + " = \"<a>'\"";
        default:
            return Pieces[std::uniform_int_distribution<std::size_t>(0, Pieces.size() - 1)(Random)];
    }
}

TEST(XmlGuard, MeasuresWhatTheLibraryBuildsFromRandomPieces) {
    std::mt19937 Random(1);
    std::vector<std::string> Documents;
    for (int nDocument = 0; nDocument < 60000; ++nDocument) {
        std::string strText = std::uniform_int_distribution<int>(0, 3)(Random) == 0 ? "" : "<r>";
        const int nPieces = std::uniform_int_distribution<int>(1, 30)(Random);
        for (int nPiece = 0; nPiece < nPieces; ++nPiece) {
            strText += Piece(Random, nPiece);
        }
        Documents.push_back(strText);
    }
    EXPECT_GT(CompareWithTheLibrary(Documents), 1000);
}

// Well-formed by construction, so that the depths grow.
std::string RandomElement(std::mt19937& Random, int nDepth, int& nAttribute) {
    static const std::vector<std::string> Contents = {
        "", " ", "text", "<!-- <x> -->", "<![CDATA[<x>]]>", "&lt;x>", "&#x3C;", "<?xml a='<'?>", "<!x>", "\xD6"};
    const std::string strName = std::string(std::uniform_int_distribution<std::size_t>(1, 3)(Random), 'e');
    std::string strText = "<" + strName;
    for (int n = std::uniform_int_distribution<int>(0, 3)(Random); n > 0; --n) {
        strText += " a" + std::to_string(nAttribute++) + (n % 2 == 0 ? " = '<x>\"/>'" : "=\"'&#65;\"");
    }
    if (nDepth == 0) {
        return strText + "/>";
    }
    strText += ">";
    for (int n = std::uniform_int_distribution<int>(0, 3)(Random); n > 0; --n) {
        strText += Contents[std::uniform_int_distribution<std::size_t>(0, Contents.size() - 1)(Random)];
        strText += RandomElement(Random, nDepth - std::uniform_int_distribution<int>(1, nDepth)(Random), nAttribute);
    }
    return strText + "</" + strName + " >";
}

TEST(XmlGuard, MeasuresWhatTheLibraryBuildsFromRandomTrees) {
    std::mt19937 Random(2);
    std::vector<std::string> Documents;
    for (int nDocument = 0; nDocument < 5000; ++nDocument) {
        int nAttribute = 0;
        Documents.push_back(RandomElement(Random, std::uniform_int_distribution<int>(0, 12)(Random), nAttribute));
    }
    EXPECT_EQ(CompareWithTheLibrary(Documents), 10000);
}

TEST(XmlGuard, MeasuresATreeThatIsCutAtAnyByte) {
    std::mt19937 Random(3);
    std::vector<std::string> Documents;
    for (int nDocument = 0; nDocument < 40; ++nDocument) {
        int nAttribute = 0;
        const std::string strText = RandomElement(Random, 6, nAttribute).substr(0, 600);
        for (std::size_t uLength = 0; uLength < strText.size(); ++uLength) {
            Documents.push_back(strText.substr(0, uLength));
        }
    }
    CompareWithTheLibrary(Documents);
}

TEST(XmlGuard, NeedsOnePassWhateverIsRepeated) {
    // Anything that went over the rest of the text again for each piece would take hours.
    const int nTimes = 2 * 1024 * 1024;
    const auto Begin = std::chrono::steady_clock::now();
    for (const char* pszPiece :
         {"<", "<a/>", "<!--", "<![CDATA[", "&#", "&#x", "&#;", "&", "<!", "<?xml ", "'", "</", " a='"}) {
        MeasureXml(Repeated(pszPiece, nTimes).c_str());
        MeasureXml(("<r>" + Repeated(pszPiece, nTimes) + ";-->]]></r>").c_str());
        MeasureXml(("<r a='" + Repeated(pszPiece, nTimes) + ";'></r>").c_str());
    }
    EXPECT_LT(std::chrono::steady_clock::now() - Begin, std::chrono::seconds(60));
}

}  // namespace
}  // namespace crashvane
