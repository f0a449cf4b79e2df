#include "report/XmlElements.h"

#include "ReportTest.h"

namespace crashvane {
namespace {

constexpr TextForm<unsigned int> HexForm = {"0x%x"};

std::string ReadText(const std::string& strChildren) {
    std::string strText = "old";
    return ReadTextElement(Parsed(strChildren).Parent(), "Name", strText) == 1 ? strText : "failed";
}

TEST(XmlElements, WriteATextChildEvenForAnEmptyText) {
    Saved Target;
    EXPECT_EQ(WriteTextElement(Target.Parent(), "Name", ""), 1);
    EXPECT_EQ(WriteTextElement(Target.Parent(), "Name", "text"), 1);
    EXPECT_EQ(Target.Text(), "<Parent><Name></Name><Name>text</Name></Parent>");
}

TEST(XmlElements, WriteNumbersWithoutALengthLimit) {
    constexpr TextForm<unsigned int> WideForm = {"%02000u"};
    Saved Target;
    EXPECT_EQ(WriteFormattedElement(Target.Parent(), "Name", 7u, WideForm), 1);
    EXPECT_EQ(Target.Text(), "<Parent><Name>" + std::string(1999, '0') + "7</Name></Parent>");
}

TEST(XmlElements, ReadTheFirstElementOfTheName) {
    EXPECT_EQ(ReadText("<Other>a</Other><Name>b</Name><Name>c</Name>"), "b");
}

TEST(XmlElements, FailForAnAbsentElement) {
    EXPECT_EQ(ReadText("<name>a</name>"), "failed");
    EXPECT_EQ(ReadText("<!--Name-->"), "failed");
}

TEST(XmlElements, ReadAnElementWithoutChildrenAsEmpty) {
    EXPECT_EQ(ReadText("<Name />"), "");
    EXPECT_EQ(ReadText("<Name></Name>"), "");
}

TEST(XmlElements, ReadTheValueOfTheFirstChildWhateverItIs) {
    EXPECT_EQ(ReadText("<Name><![CDATA[a < b]]></Name>"), "a < b");
    EXPECT_EQ(ReadText("<Name><!--comment-->text</Name>"), "comment");
    EXPECT_EQ(ReadText("<Name><Inner>text</Inner></Name>"), "Inner");
    EXPECT_EQ(ReadText("<Name>first<Inner /> second</Name>"), "first");
}

TEST(XmlElements, KeepZerosInsideATextButScanUpToThem) {
    EXPECT_EQ(ReadText("<Name>a&#0;b</Name>"), std::string("a\0b", 3));
    unsigned int uNumber = 1;
    EXPECT_EQ(ReadFormattedElement(Parsed("<Name>0x12&#0;3</Name>").Parent(), "Name", uNumber, HexForm), 1);
    EXPECT_EQ(uNumber, 0x12u);
}

TEST(XmlElements, ScanOneValue) {
    struct {
        const char* pszText;
        int nExpected;
        unsigned int uExpected;
    } const Cases[] = {
        {"0x1f", 1, 31}, {"", 0, 77},   {"0", 0, 77},    {"0x", 0, 77},      {"0x ", 0, 77},
        {"0xg", 1, 77},  {"1f", 1, 77}, {" 0x1", 1, 77}, {"0x \t\n1", 1, 1}, {"x", 1, 77},
    };
    for (const auto& Case : Cases) {
        unsigned int uNumber = 77;
        EXPECT_EQ(ScanValue(Case.pszText, "0x%x", &uNumber), Case.nExpected) << Case.pszText;
        EXPECT_EQ(uNumber, Case.uExpected) << Case.pszText;
    }
}

TEST(XmlElements, TakeBlanksAloneForTheEndOfInput) {
    unsigned int uNumber = 77;
    EXPECT_EQ(ScanValue(" \t\r\n", "%u", &uNumber), 0);
    EXPECT_EQ(ScanValue("  7", "%u", &uNumber), 1);
    EXPECT_EQ(uNumber, 7u);
}

TEST(XmlElements, SetAnAttributeAtTheEndOrInItsPlace) {
    TiXmlElement Element("Name");
    SetTextAttribute(&Element, "a", "1");
    SetTextAttribute(&Element, "b", "2");
    SetFormattedAttribute(&Element, "a", 31u, HexForm);
    EXPECT_STREQ(Element.FirstAttribute()->Name(), "a");
    EXPECT_STREQ(Element.Attribute("a"), "0x1f");
    EXPECT_STREQ(Element.LastAttribute()->Name(), "b");
}

TEST(XmlElements, ReadAttributes) {
    Parsed Source("<Name a='text' n='0x10' e='' />");
    std::string strText = "old";
    unsigned int uNumber = 77;
    EXPECT_EQ(ReadTextAttribute(Source.First(), "a", strText), 1);
    EXPECT_EQ(strText, "text");
    EXPECT_EQ(ReadTextAttribute(Source.First(), "absent", strText), 0);
    EXPECT_EQ(strText, "text");
    EXPECT_EQ(ReadFormattedAttribute(Source.First(), "n", uNumber, HexForm), 1);
    EXPECT_EQ(uNumber, 16u);
    EXPECT_EQ(ReadFormattedAttribute(Source.First(), "a", uNumber, HexForm), 1);
    EXPECT_EQ(ReadFormattedAttribute(Source.First(), "absent", uNumber, HexForm), 0);
    EXPECT_EQ(ReadFormattedAttribute(Source.First(), "e", uNumber, HexForm), 0);
    EXPECT_EQ(uNumber, 16u);
    EXPECT_EQ(ReadTextAttribute(Source.First(), "e", strText), 1);
    EXPECT_EQ(strText, "");
}

}  // namespace
}  // namespace crashvane
