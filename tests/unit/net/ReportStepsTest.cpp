#include "net/RawServer.h"

#include "net/ReportSteps.h"

#include <gmock/gmock.h>

#include "net/AllocationWatch.h"
#include "net/FormText.h"
#include "net/SampleReport.h"
#include "support/LogCapture.h"

namespace crashvane {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

constexpr const char* NO_SCHEME_OF_OURS = "HTTP://127.0.0.1/";

Config AllUrls(const std::string& strUrl) {
    Config Settings;
    Settings.m_strProject = "SAMPLE";
    Settings.m_strPlayerLoginUrl = strUrl;
    Settings.m_strSessionUrl = strUrl;
    Settings.m_strDumpInfoUrl = strUrl;
    Settings.m_strDumpTypeUrl = strUrl;
    return Settings;
}

TEST(SendActiveMachine, PostsToThePlayerLoginAddress) {
    RawServer Server(Answer(""));
    SampleCollection Sample;
    const LogCapture Log;
    Config Settings = AllUrls(NO_SCHEME_OF_OURS);
    Settings.m_strPlayerLoginUrl = Server.Url("/dumpserver/playerloginbase.php");
    FixBoundary();
    EXPECT_EQ(SendActiveMachine(&Sample, Settings), 1);
    EXPECT_EQ(BodyOf(Server.Request()), FormText({{"bittype", "x64"},
                                                  {"cpubrand", "Some CPU"},
                                                  {"newuuid", "NEW-4"},
                                                  {"project", "SAMPLE"},
                                                  {"threadtype", "multi"},
                                                  {"totalphysmem", "3072"},
                                                  {"uuid", "UUID-3"},
                                                  {"ver", "1.2.3_PAK"},
                                                  {"verex", "4.5 live"},
                                                  {"videocard", "Some card"}}));
    EXPECT_THAT(Log.Lines(), IsEmpty());
}

TEST(SendActiveMachine, LogsAFailedRequest) {
    SampleCollection Sample;
    const LogCapture Log;
    EXPECT_EQ(SendActiveMachine(&Sample, AllUrls(NO_SCHEME_OF_OURS)), 0);
    EXPECT_THAT(Log.Lines(),
                ElementsAre(MatchesRegex("ZTLOG_PROCESS_ERROR\\(nRetCode\\) at line \\d+ in SendActiveMachine")));
}

TEST(SendSession, PostsToTheSessionAddress) {
    RawServer Server(Answer(""));
    SampleCollection Sample;
    const LogCapture Log;
    Config Settings = AllUrls(NO_SCHEME_OF_OURS);
    Settings.m_strSessionUrl = Server.Url();
    FixBoundary();
    EXPECT_EQ(SendSession(&Sample, Settings), 1);
    EXPECT_EQ(BodyOf(Server.Request()), FormText({{"clientname", "Client.exe"},
                                                  {"newuuid", "NEW-4"},
                                                  {"project", "SAMPLE"},
                                                  {"uuid", "UUID-3"},
                                                  {"ver", "1.2.3_PAK"},
                                                  {"verex", "4.5 live"}}));
    EXPECT_THAT(Log.Lines(), IsEmpty());
}

TEST(SendSession, LogsAFailedRequest) {
    RawServer Server(Answer("", "500 Internal Server Error"));
    SampleCollection Sample;
    const LogCapture Log;
    EXPECT_EQ(SendSession(&Sample, AllUrls(Server.Url())), 0);
    EXPECT_THAT(Log.Lines(),
                ElementsAre(MatchesRegex("ZTLOG_PROCESS_ERROR\\(nRetCode\\) at line \\d+ in SendSession")));
}

TEST(SendDumpInfo, PostsTheLastLoginTooToTheDumpInfoAddress) {
    RawServer Server(Answer(""));
    SampleCollection Sample;
    const LogCapture Log;
    Config Settings = AllUrls(NO_SCHEME_OF_OURS);
    Settings.m_strDumpInfoUrl = Server.Url();
    FixBoundary();
    EXPECT_EQ(SendDumpInfo(&Sample, Settings), 1);
    const std::string strBody = BodyOf(Server.Request());
    EXPECT_THAT(strBody, HasSubstr(PartText("account", "the account")));
    EXPECT_THAT(strBody, HasSubstr(PartText("regionname", "the region") + PartText("rolename", "the role") +
                                   PartText("servername", "the server")));
    EXPECT_THAT(strBody, HasSubstr(PartText("key", "KEY-1")));
    EXPECT_THAT(strBody, HasSubstr(PartText("project", "SAMPLE")));
    EXPECT_THAT(Log.Lines(), IsEmpty());
}

TEST(SendDumpInfo, LogsAFailedRequestAndGoesOn) {
    SampleCollection Sample;
    const LogCapture Log;
    EXPECT_EQ(SendDumpInfo(&Sample, AllUrls(NO_SCHEME_OF_OURS)), 1);
    EXPECT_THAT(Log.Lines(), ElementsAre(MatchesRegex("ZTLOG_CHECK_ERROR\\(nRetCode\\) at line \\d+ in SendDumpInfo")));
}

TEST(SendDumpSolution, AsksTheDumpTypeAddress) {
    RawServer Server(Answer("3\r\n"));
    const LogCapture Log;
    Config Settings = AllUrls(NO_SCHEME_OF_OURS);
    int nCrashType = 7;
    Settings.m_strDumpSolutionUrl = "http://127.0.0.1:1/not/this/one";
    Settings.m_strDumpTypeUrl = Server.Url("/dump_api/get_dump_type");
    FixBoundary();
    EXPECT_EQ(SendDumpSolution(Settings, "KEY-1", nCrashType), 1);
    EXPECT_EQ(nCrashType, 3);
    EXPECT_EQ(BodyOf(Server.Request()), FormText({{"dump_key", "KEY-1"}, {"project", "SAMPLE"}}));
    EXPECT_THAT(Log.Lines(), IsEmpty());
}

TEST(SendDumpSolution, LogsAFailedRequestAndHasNoNumber) {
    RawServer Server(Answer("3", "404 Not Found"));
    const LogCapture Log;
    int nCrashType = 7;
    EXPECT_EQ(SendDumpSolution(AllUrls(Server.Url()), "KEY-1", nCrashType), 0);
    EXPECT_EQ(nCrashType, 0);
    EXPECT_THAT(Log.Lines(),
                ElementsAre(MatchesRegex("ZTLOG_PROCESS_ERROR\\(nRetCode\\) at line \\d+ in SendDumpSolution")));
}

// Every allocation of a step fails in turn, with all that follow it: one line says so, and nothing is thrown.
template <typename Step>
void ExpectOneLineEachTimeMemoryRunsOut(const Step& Work) {
    for (std::size_t uFailing = 1;; ++uFailing) {
        const LogCapture Log;
        std::size_t uRefused = 0;
        ASSERT_NO_THROW({
            const AllocationWatch Watch(uFailing, AllocationWatch::RefuseFromThereOn);
            Work();
            uRefused = AllocationWatch::Refused();
        });
        const std::vector<std::string> Lines = Log.Lines();
        if (uRefused == 0) {
            EXPECT_THAT(Lines, IsEmpty());
            EXPECT_GT(uFailing, 10u);
            break;
        }
        ASSERT_EQ(Lines.size(), 1u) << "allocation " << uFailing;
        EXPECT_THAT(Lines[0], MatchesRegex("ZTLOG_\\w+_ERROR\\(nRetCode\\) at line \\d+ in Send\\w+"));
    }
}

TEST(Steps, FailWithOneLineWhenMemoryRunsOut) {
    RawServer Server(Answer("3"));
    SampleCollection Sample;
    const Config Settings = AllUrls(Server.Url());
    const std::string strDumpKey(100, 'k');
    int nCrashType = 0;
    ExpectOneLineEachTimeMemoryRunsOut([&] { SendActiveMachine(&Sample, Settings); });
    ExpectOneLineEachTimeMemoryRunsOut([&] { SendSession(&Sample, Settings); });
    ExpectOneLineEachTimeMemoryRunsOut([&] { SendDumpInfo(&Sample, Settings); });
    ExpectOneLineEachTimeMemoryRunsOut([&] { SendDumpSolution(Settings, strDumpKey, nCrashType); });
}

TEST(Steps, AreFailuresWithoutMemory) {
    SampleCollection Sample;
    const Config Settings = AllUrls(NO_SCHEME_OF_OURS);
    const std::string strDumpKey(100, 'k');
    const LogCapture Log;
    int nCrashType = 7;
    int nResults = 0;
    {
        const AllocationWatch Watch(1, AllocationWatch::RefuseFromThereOn);
        nResults += SendActiveMachine(&Sample, Settings);
        nResults += SendSession(&Sample, Settings);
        nResults += SendDumpSolution(Settings, strDumpKey, nCrashType);
    }
    EXPECT_EQ(nResults, 0);
    EXPECT_EQ(nCrashType, 0);
}

}  // namespace
}  // namespace crashvane
