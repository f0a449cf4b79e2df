#include "net/RawServer.h"

#include "net/DumpPackage.h"

#include <gmock/gmock.h>

#include <filesystem>

#include "net/AllocationWatch.h"
#include "net/FormText.h"
#include "net/SampleReport.h"
#include "net/TempFolder.h"
#include "support/LogCapture.h"
#include "zip/ZipHandle.h"

namespace crashvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

constexpr const char* NO_SCHEME_OF_OURS = "HTTP://127.0.0.1/";
constexpr const char* CREATE_CHECK = "ZTLOG_CHECK_ERROR\\(nRetCode\\) at line \\d+ in CreateZipFile";

unsigned Number(const std::string& strBytes, std::size_t uAt, std::size_t uCount) {
    unsigned uNumber = 0;
    while (uCount-- > 0) {
        uNumber = uNumber << 8 | static_cast<unsigned char>(strBytes.at(uAt + uCount));
    }
    return uNumber;
}

// "name=uncompressed size" of each entry, from the archive's directory.
std::vector<std::string> EntriesOf(const std::string& strArchive) {
    std::vector<std::string> Entries;
    const std::size_t uEnd = strArchive.size() - 22;
    std::size_t uAt = Number(strArchive, uEnd + 16, 4);
    while (uAt < uEnd) {
        EXPECT_EQ(strArchive.substr(uAt, 4), "PK\x01\x02");
        const unsigned uName = Number(strArchive, uAt + 28, 2);
        Entries.push_back(strArchive.substr(uAt + 46, uName) + "=" + std::to_string(Number(strArchive, uAt + 24, 4)));
        uAt += 46 + uName + Number(strArchive, uAt + 30, 2) + Number(strArchive, uAt + 32, 2);
    }
    EXPECT_EQ(uAt, uEnd);
    return Entries;
}

std::string ReadFileBytes(const std::string& strPath) {
    std::ifstream Stream(strPath, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(Stream), {});
}

// A report with a dump and two custom files, in a folder that is the current one meanwhile.
class DumpPackage : public testing::Test {
  protected:
    DumpPackage() {
        std::filesystem::current_path(m_Work.Path());
        m_Settings.m_strProject = "SAMPLE";
        m_Settings.m_strDumpFileUrl = NO_SCHEME_OF_OURS;
        m_Settings.m_strCrashReportFile = m_Files.Write("brenn_report.xml", "<xml/>");
        Report().Exception.DumpFileName = m_Files.Write("client.dmp", "the dump");
        Report().CustomFiles = {m_Files.Write("one.log", "1"), m_Files.Write("two.txt", "22")};
    }
    ~DumpPackage() override { std::filesystem::current_path(m_Before); }

    CrashReporter& Report() { return m_Sample.m_CrashReporter; }
    [[nodiscard]] std::string ArchiveName() const { return "Crash_" + std::to_string(GetCurrentProcessId()) + ".zip"; }
    [[nodiscard]] bool IsFolderEmpty() const { return std::filesystem::is_empty(m_Work.Path()); }

    std::filesystem::path m_Before = std::filesystem::current_path();
    TempFolder m_Work;
    TempFolder m_Files;
    SampleCollection m_Sample;
    Config m_Settings;
    LogCapture m_Log;
};

TEST_F(DumpPackage, HoldsReportDumpAndCustomFilesInThisOrder) {
    EXPECT_EQ(CreateZipFile(m_Settings.m_strCrashReportFile, Report(), "a.zip"), 1);
    EXPECT_THAT(EntriesOf(ReadFileBytes("a.zip")),
                ElementsAre("CrashReport.xml=6", "client.dmp=8", "one.log=1", "two.txt=2"));
    EXPECT_THAT(m_Log.Lines(), IsEmpty());
}

TEST_F(DumpPackage, LeavesOutWhatIsMissing) {
    Report().Exception.DumpFileName = m_Files.Path("gone.dmp");
    Report().CustomFiles.insert(Report().CustomFiles.begin(), m_Files.Path());
    EXPECT_EQ(CreateZipFile(m_Settings.m_strCrashReportFile, Report(), "a.zip"), 1);
    EXPECT_THAT(EntriesOf(ReadFileBytes("a.zip")), ElementsAre("CrashReport.xml=6", "one.log=1", "two.txt=2"));
    EXPECT_THAT(m_Log.Lines(), ElementsAre(MatchesRegex(CREATE_CHECK), MatchesRegex(CREATE_CHECK)));
}

TEST_F(DumpPackage, LeavesOutADumpThatHasNoName) {
    Report().Exception.DumpFileName.clear();
    EXPECT_EQ(CreateZipFile(m_Settings.m_strCrashReportFile, Report(), "a.zip"), 1);
    EXPECT_THAT(EntriesOf(ReadFileBytes("a.zip")), ElementsAre("CrashReport.xml=6", "one.log=1", "two.txt=2"));
    EXPECT_THAT(m_Log.Lines(), ElementsAre(MatchesRegex(CREATE_CHECK)));
}

TEST_F(DumpPackage, MayHoldNothingAtAll) {
    EXPECT_EQ(CreateZipFile(m_Files.Path("gone.xml"), CrashReporter(), "a.zip"), 1);
    EXPECT_THAT(EntriesOf(ReadFileBytes("a.zip")), IsEmpty());
    EXPECT_THAT(m_Log.Lines(), ElementsAre(MatchesRegex(CREATE_CHECK), MatchesRegex(CREATE_CHECK)));
}

TEST_F(DumpPackage, LeavesOutWhatSomebodyKeepsForHimself) {
    const FileHandle hLock(
        CreateFileA(Report().Exception.DumpFileName.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(hLock);
    EXPECT_EQ(CreateZipFile(m_Settings.m_strCrashReportFile, Report(), "a.zip"), 1);
    EXPECT_THAT(EntriesOf(ReadFileBytes("a.zip")), ElementsAre("CrashReport.xml=6", "one.log=1", "two.txt=2"));
    EXPECT_THAT(m_Log.Lines(), ElementsAre(MatchesRegex(CREATE_CHECK)));
}

TEST_F(DumpPackage, CannotBeMadeWhereNoFileCanBeCreated) {
    EXPECT_EQ(CreateZipFile(m_Settings.m_strCrashReportFile, Report(), m_Files.Path()), 0);
    EXPECT_THAT(m_Log.Lines(),
                ElementsAre(MatchesRegex("ZTLOG_PROCESS_ERROR\\(hZip\\) at line \\d+ in CreateZipFile")));
}

TEST_F(DumpPackage, RemembersTheWritersResultOfEachAdd) {
    unsigned uLastZipError = 77;
    const FileHandle hLock(
        CreateFileA(Report().CustomFiles[1].c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ZipArchive* const pArchive = ZipWriter::CreateArchive("a.zip");
    EXPECT_EQ(AddToArchive(pArchive, m_Files.Path("gone"), "gone", uLastZipError), 0);
    EXPECT_EQ(uLastZipError, 77u);
    EXPECT_EQ(AddToArchive(pArchive, Report().CustomFiles[0], "one.log", uLastZipError), 1);
    EXPECT_EQ(uLastZipError, 0u);
    EXPECT_EQ(AddToArchive(pArchive, Report().CustomFiles[1], "two.txt", uLastZipError), 0);
    EXPECT_EQ(uLastZipError, 0x200u);
    EXPECT_EQ(AddToArchive(pArchive, Report().CustomFiles[0], "", uLastZipError), 0);
    EXPECT_EQ(uLastZipError, 0x10000u);
    EXPECT_EQ(ZipWriter::Close(pArchive), 0u);
}

TEST_F(DumpPackage, AddsNothingToAHandleOfAnotherKind) {
    unsigned uLastZipError = 0;
    ZipArchive Other;
    Other.uKind = 1;
    EXPECT_EQ(AddToArchive(&Other, m_Files.Path("gone"), "gone", uLastZipError), 0);
    EXPECT_EQ(uLastZipError, 0u);
    EXPECT_EQ(AddToArchive(&Other, Report().CustomFiles[0], "one.log", uLastZipError), 0);
    EXPECT_EQ(uLastZipError, 0x80000u);
}

TEST_F(DumpPackage, AddsNothingWithoutAnArchive) {
    unsigned uLastZipError = 77;
    EXPECT_EQ(AddToArchive(nullptr, Report().CustomFiles[0], "one.log", uLastZipError), 0);
    EXPECT_EQ(uLastZipError, 77u);
}

TEST_F(DumpPackage, IsSentWithKeyGuidAndFeedback) {
    RawServer Server(Answer(""));
    m_Settings.m_strDumpFileUrl = Server.Url("/dumpserver/dumpfile.php");
    EXPECT_EQ(SendDumpFile(&m_Sample, m_Settings, "it broke"), 1);
    const std::string strRequest = Server.Request();
    const std::string strBody = BodyOf(strRequest);
    const std::string strBoundary = strBody.substr(0, strBody.find("\r\n"));
    const std::string strHead = strBoundary + "\r\nContent-Disposition: form-data; name=\"filename\"\r\n\r\n" +
                                ArchiveName() + "\r\n" + strBoundary +
                                "\r\nContent-Disposition: form-data; name=\"guid\"\r\n\r\nGUID-2\r\n" + strBoundary +
                                "\r\nContent-Disposition: form-data; name=\"key\"\r\n\r\nKEY-1\r\n" + strBoundary +
                                "\r\nContent-Disposition: form-data; name=\"project\"\r\n\r\nSAMPLE\r\n" + strBoundary +
                                "\r\nContent-Disposition: form-data; name=\"remark\"\r\n\r\nit broke\r\n" +
                                strBoundary + "\r\nContent-Disposition: form-data; name=\"File\"; filename=\"" +
                                m_Work.Path(ArchiveName()) + "\"\r\nContent-Type: application/octet-stream\r\n\r\n";
    const std::string strTail = "\r\n" + strBoundary + "--\r\n";
    EXPECT_EQ(FirstLineOf(strRequest), "POST /dumpserver/dumpfile.php HTTP/1.1");
    ASSERT_EQ(strBody.substr(0, strHead.size()), strHead);
    ASSERT_THAT(strBody, testing::EndsWith(strTail));
    EXPECT_THAT(EntriesOf(strBody.substr(strHead.size(), strBody.size() - strHead.size() - strTail.size())),
                ElementsAre("CrashReport.xml=6", "client.dmp=8", "one.log=1", "two.txt=2"));
    EXPECT_THAT(m_Log.Lines(), IsEmpty());
    EXPECT_TRUE(IsFolderEmpty());
}

TEST_F(DumpPackage, SendsAnEmptyRemarkWithoutFeedback) {
    RawServer Server(Answer(""));
    m_Settings.m_strDumpFileUrl = Server.Url();
    EXPECT_EQ(SendDumpFile(&m_Sample, m_Settings, ""), 1);
    EXPECT_THAT(BodyOf(Server.Request()), HasSubstr("; name=\"remark\"\r\n\r\n\r\n--"));
}

TEST_F(DumpPackage, IsDeletedAndCountsAsCreatedWhenTheUploadFails) {
    RawServer Server(Answer("", "413 Payload Too Large"));
    m_Settings.m_strDumpFileUrl = Server.Url();
    EXPECT_EQ(SendDumpFile(&m_Sample, m_Settings, ""), 1);
    EXPECT_THAT(m_Log.Lines(),
                ElementsAre(MatchesRegex("ZTLOG_CHECK_ERROR\\(nRetCode\\) at line \\d+ in SendDumpFile")));
    EXPECT_TRUE(IsFolderEmpty());
}

TEST_F(DumpPackage, IsNotSentWhenItCannotBeCreated) {
    RawServer Server(Answer(""));
    m_Settings.m_strDumpFileUrl = Server.Url();
    std::filesystem::create_directory(ArchiveName());
    EXPECT_EQ(SendDumpFile(&m_Sample, m_Settings, ""), 0);
    EXPECT_TRUE(Server.Stop().empty());
    EXPECT_THAT(m_Log.Lines(),
                ElementsAre(MatchesRegex("ZTLOG_PROCESS_ERROR\\(hZip\\) at line \\d+ in CreateZipFile"),
                            MatchesRegex("ZTLOG_PROCESS_ERROR\\(nRetCode\\) at line \\d+ in SendDumpFile")));
}

TEST_F(DumpPackage, ReplacesWhatAnEarlierProcessOfThisNumberLeft) {
    std::ofstream(ArchiveName()) << "old";
    EXPECT_EQ(SendDumpFile(&m_Sample, m_Settings, ""), 1);
    EXPECT_TRUE(IsFolderEmpty());
}

// Every allocation fails in turn, with all that follow it.
TEST_F(DumpPackage, LeavesNothingBehindWhenMemoryRunsOut) {
    RawServer Server(Answer(""));
    m_Settings.m_strDumpFileUrl = Server.Url();
    const std::string strFeedback(100, 'f');
    for (std::size_t uFailing = 1;; ++uFailing) {
        std::size_t uRefused = 0;
        const std::size_t uLines = m_Log.Lines().size();
        ASSERT_NO_THROW({
            const AllocationWatch Watch(uFailing, AllocationWatch::RefuseFromThereOn);
            SendDumpFile(&m_Sample, m_Settings, strFeedback);
            uRefused = AllocationWatch::Refused();
        });
        ASSERT_TRUE(IsFolderEmpty()) << "allocation " << uFailing;
        if (uRefused == 0) {
            EXPECT_EQ(m_Log.Lines().size(), uLines);
            EXPECT_GT(uFailing, 10u);
            break;
        }
        ASSERT_GT(m_Log.Lines().size(), uLines) << "allocation " << uFailing;
        EXPECT_THAT(m_Log.Lines().back(), MatchesRegex("ZTLOG_\\w+_ERROR\\(nRetCode\\) at line \\d+ in SendDumpFile"))
            << "allocation " << uFailing;
    }
}

}  // namespace
}  // namespace crashvane
