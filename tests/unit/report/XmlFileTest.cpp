#include "report/XmlFile.h"

#include <string>

#include "ReportTest.h"
#include "report/XmlGuard.h"

namespace crashvane {
namespace {

class XmlFile : public ReportTest {
  protected:
    [[nodiscard]] static std::string TextOf(const TiXmlDocument& Document) {
        TiXmlPrinter Printer;
        Printer.SetStreamPrinting();
        Document.Accept(&Printer);
        return Printer.CStr();
    }

    // The library's own reading and ours give the same result and the same document.
    void ExpectSameAsTheLibrary(const std::string& strBytes) {
        Write(strBytes);
        TiXmlDocument Expected;
        const bool bExpected = Expected.LoadFile(m_strFile.c_str(), TIXML_ENCODING_LEGACY);
        TiXmlDocument Loaded;
        EXPECT_EQ(LoadXmlFile(m_strFile, Loaded), bExpected ? 1 : 0) << strBytes;
        EXPECT_EQ(TextOf(Loaded), TextOf(Expected)) << strBytes;
    }
};

TEST_F(XmlFile, ReadsAsTheLibraryDoes) {
    for (const bool bCondense : {true, false}) {
        TiXmlBase::SetCondenseWhiteSpace(bCondense);
        for (const std::string& strBytes : {
                 std::string(SampleReport),
                 std::string("<a>1\r2\r\n3\n4\r\r5\n\r6\r\n\r\n7\r\r\n8</a>\r"),
                 std::string("<a b='1\r2\r\n3\n'/>\r\n"),
                 std::string("<a>x</a>\0<b/>", 13),
                 std::string("<a>x\0</a>", 9),
                 std::string("\0<a/>", 5),
                 std::string("\r"),
                 std::string("\xEF\xBB\xBF<a/>"),
                 std::string("\xFF\xFE<\0a\0/\0>\0", 10),
                 std::string("<\0a\0/\0>\0", 8),
                 std::string("<a>\xC3"),
                 std::string("<a>\xE4\xB8</a>"),
                 std::string("<?xml version=\"1.0\" encoding=\"UTF-8\"?><a>\xE4\xB8\xAD&#x4E2D;</a>"),
                 std::string("<a/><!-- open"),
                 std::string("<!DOCTYPE"),
                 std::string("<?xml"),
                 std::string("<"),
                 std::string("<a/>behind"),
                 std::string("<a/><b/>"),
                 std::string("<a>&foo; &#0; &#x110000; &#;</a>"),
                 std::string("<a b='1' b='2'/>"),
             }) {
            ExpectSameAsTheLibrary(strBytes);
        }
    }
}

TEST_F(XmlFile, FailsForAnEmptyFileAsTheLibraryDoes) {
    ExpectSameAsTheLibrary("");
}

TEST_F(XmlFile, RefusesWhatTheGuardRefuses) {
    std::string strDeep;
    for (int n = 0; n < 201; ++n) {
        strDeep.insert(0, "<a>");
        strDeep += "</a>";
    }
    TiXmlDocument Document;
    Write(strDeep);
    EXPECT_EQ(LoadXmlFile(m_strFile, Document), 0);
    Write(strDeep.substr(3, strDeep.size() - 7));
    EXPECT_EQ(LoadXmlFile(m_strFile, Document), 1);
}

TEST_F(XmlFile, TakesFilesUpToTheSizeLimitAndNoByteMore) {
    const std::string strRoot = "<a/>";
    TiXmlDocument Document;
    Write(strRoot + std::string(64 * 1024 * 1024 - strRoot.size(), ' '));
    EXPECT_EQ(LoadXmlFile(m_strFile, Document), 1);
    Write(strRoot + std::string(64 * 1024 * 1024 - strRoot.size() + 1, ' '));
    EXPECT_EQ(LoadXmlFile(m_strFile, Document), 0);
}

TEST_F(XmlFile, ReadsNoDeviceForever) {
    TiXmlDocument Document;
    EXPECT_EQ(LoadXmlFile("NUL", Document), 0);
}

TEST_F(XmlFile, WritesAsTheLibraryDoes) {
    TiXmlDocument Document;
    Document.Parse(SampleReport, nullptr, TIXML_ENCODING_LEGACY);
    ASSERT_TRUE(Document.SaveFile(m_strFile.c_str()));
    const std::string strExpected = Bytes();
    Write("old");
    EXPECT_EQ(SaveXmlFile(m_strFile, Document), 1);
    EXPECT_EQ(Bytes(), strExpected);
}

}  // namespace
}  // namespace crashvane
