// The example that client programmers copy from the documentation.
#include <string>

#include "ReportTest.h"

namespace crashvane {
namespace {

class ReportFormat : public ReportTest {
  protected:
    // The first block of XML in the page.
    static std::string Example() {
        std::ifstream Stream(CRASHVANE_DOCS_DIR "/report-format.md", std::ios::binary);
        const std::string strPage{std::istreambuf_iterator<char>(Stream), std::istreambuf_iterator<char>()};
        const std::string strFence = "```xml\n";
        const std::string::size_type uFrom = strPage.find(strFence);
        const std::string::size_type uTo = strPage.find("```\n", uFrom + strFence.size());
        EXPECT_NE(uTo, std::string::npos) << "no example in " CRASHVANE_DOCS_DIR;
        return uTo == std::string::npos ? "" : strPage.substr(uFrom + strFence.size(), uTo - uFrom - strFence.size());
    }
};

TEST_F(ReportFormat, TheExampleLoadsWithoutAComplaint) {
    EXPECT_EQ(LoadText(Example()), 1);
    EXPECT_THAT(Checks(), testing::ElementsAre());
    EXPECT_EQ(m_Report.Project, "QRL");
    EXPECT_EQ(m_Report.Exception.ExceptionCode, 3221225477u);
    EXPECT_EQ(m_Report.Exception.ExceptionDescription, "Access violation reading 0x10 in <Render> & \"Draw\"");
    EXPECT_EQ(m_Report.Exception.ExceptionAddress, 0x7ff6a1b20000u);
    EXPECT_EQ(m_Report.Exception.ProcessMemPeak.WorkingSetSize, 838860800u);
    EXPECT_EQ(m_Report.Machine.VideoCardInfo.VideoCardMemory.AvailMemory, 6442450944u);
    ASSERT_EQ(m_Report.Modules.size(), 2u);
    EXPECT_EQ(m_Report.Modules[1].TimeDateStamp, 2998163462u);
    EXPECT_THAT(m_Report.CustomFiles, testing::ElementsAre("C:\\Game\\logs\\client.log"));
    EXPECT_THAT(m_Report.CustomInfos, testing::ElementsAre("map=harbour;quality=high"));
}

TEST_F(ReportFormat, TheExampleIsWhatASaveWouldWrite) {
    EXPECT_EQ(LoadText(Example()), 1);
    EXPECT_EQ(m_Report.Save(m_strFile), 1);
    std::string strSaved = Bytes();
    std::erase(strSaved, '\r');
    EXPECT_EQ(strSaved, Example());
}

TEST_F(ReportFormat, WritesBlanksThatMatterAsReferences) {
    EXPECT_EQ(LoadText(Replaced(Example(), "<OS>Windows 10 (10.0.19045)</OS>", "<OS> a  b&#x20;&#x20;c&#x20;</OS>")),
              1);
    EXPECT_EQ(m_Report.Machine.OS, "a b  c ");
}

}  // namespace
}  // namespace crashvane
