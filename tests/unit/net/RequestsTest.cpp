#include "net/RawServer.h"

#include "net/Requests.h"

#include <gmock/gmock.h>

#include "net/FormText.h"
#include "net/SampleReport.h"
#include "net/TempFolder.h"

namespace crashvane {
namespace {

// A text that is not ASCII in the system's code page, and the same on the wire.
struct ForeignText {
    std::string strAnsi;
    std::string strUtf8;
};

ForeignText ForeignTextOfTheCodePage() {
    switch (GetACP()) {
        case 936:
            return {"\xD6\xD0", "\xE4\xB8\xAD"};
        case 949:
            return {"\xB0\xA1", "\xEA\xB0\x80"};
        case 950:
            return {"\xA4\xA4", "\xE4\xB8\xAD"};
        case 1252:
        case 1258:
            return {"caf\xE9", "caf\xC3\xA9"};
        default:
            ADD_FAILURE() << "no text for code page " << GetACP();
            return {};
    }
}

TEST(PostActiveMachine, SendsTheseFields) {
    RawServer Server(Answer("ignored"));
    const ActiveMachineInfo Info = {"u", "n", "v", "vx", "tt", "bt", "vc", "cpu", "3072"};
    FixBoundary();
    EXPECT_EQ(PostActiveMachine(Server.Url("/dumpserver/playerloginbase.php"), "BRENN", Info), 1);
    const std::string strRequest = Server.Request();
    EXPECT_EQ(FirstLineOf(strRequest), "POST /dumpserver/playerloginbase.php HTTP/1.1");
    EXPECT_EQ(BodyOf(strRequest), FormText({{"bittype", "bt"},
                                            {"cpubrand", "cpu"},
                                            {"newuuid", "n"},
                                            {"project", "BRENN"},
                                            {"threadtype", "tt"},
                                            {"totalphysmem", "3072"},
                                            {"uuid", "u"},
                                            {"ver", "v"},
                                            {"verex", "vx"},
                                            {"videocard", "vc"}}));
}

TEST(PostSession, SendsTheseFields) {
    RawServer Server(Answer("ignored"));
    const SessionInfo Info = {"u", "n", "v", "vx", "Client.exe"};
    FixBoundary();
    EXPECT_EQ(PostSession(Server.Url("/dumpserver/dumpsession.php"), "BRENN", Info), 1);
    const std::string strRequest = Server.Request();
    EXPECT_EQ(FirstLineOf(strRequest), "POST /dumpserver/dumpsession.php HTTP/1.1");
    EXPECT_EQ(BodyOf(strRequest), FormText({{"clientname", "Client.exe"},
                                            {"newuuid", "n"},
                                            {"project", "BRENN"},
                                            {"uuid", "u"},
                                            {"ver", "v"},
                                            {"verex", "vx"}}));
}

TEST(PostDumpInfo, SendsTheseFields) {
    RawServer Server(Answer("ignored"));
    DumpInfo Info;
    FillDumpInfo(&Info, SampleCollection().m_CrashReporter);
    Info.account = "acc";
    Info.rolename = "role";
    Info.regionname = "reg";
    Info.servername = "srv";
    FixBoundary();
    EXPECT_EQ(PostDumpInfo(Server.Url("/dumpserver/dumpinfo.php"), "BRENN", Info), 1);
    EXPECT_EQ(BodyOf(Server.Request()), FormText({{"PageFileAvai", "1"},
                                                  {"PageFileTotal", "4096"},
                                                  {"ProcessInstance", "-1294967296"},
                                                  {"ProcessName", "ClientX64.exe"},
                                                  {"ProcessPagefilePeak", "14"},
                                                  {"ProcessPagefileUsed", "12"},
                                                  {"ProcessPhysicsMemPeak", "13"},
                                                  {"ProcessPhysicsMemUsed", "11"},
                                                  {"account", "acc"},
                                                  {"bittype", "x64"},
                                                  {"clientname", "Client.exe"},
                                                  {"cpubrand", "Some CPU"},
                                                  {"custominfo", "a;b=1;"},
                                                  {"driver", "card.sys"},
                                                  {"driverversion", "31.0"},
                                                  {"exceptionmodule", "engine.dll"},
                                                  {"guid", "GUID-2"},
                                                  {"key", "KEY-1"},
                                                  {"newuuid", "NEW-4"},
                                                  {"os", "Windows 10"},
                                                  {"physfreemem", "0"},
                                                  {"project", "BRENN"},
                                                  {"regionname", "reg"},
                                                  {"rolename", "role"},
                                                  {"servername", "srv"},
                                                  {"threadtype", "multi"},
                                                  {"timetofailure", "122"},
                                                  {"totalphysmem", "3072"},
                                                  {"uuid", "UUID-3"},
                                                  {"ver", "1.2.3_PAK"},
                                                  {"verex", "4.5 live"},
                                                  {"videocard", "Some card"},
                                                  {"videocardfreemem", "1024"},
                                                  {"videocardmem", "2048"}}));
}

TEST(PostDumpInfo, SendsEmptyFieldsAsEmptyParts) {
    RawServer Server(Answer(""));
    FixBoundary();
    EXPECT_EQ(PostDumpInfo(Server.Url(), "", DumpInfo()), 1);
    const std::string strBody = BodyOf(Server.Request());
    EXPECT_THAT(strBody, testing::HasSubstr(PartText("custominfo", "")));
    EXPECT_THAT(strBody, testing::HasSubstr(PartText("account", "") + PartText("bittype", "")));
    EXPECT_THAT(strBody, testing::HasSubstr(PartText("project", "")));
}

TEST(PostDumpFile, SendsTheFieldsAndTheArchive) {
    const TempFolder Folder;
    RawServer Server(Answer("ignored"));
    const std::string strArchive = Folder.Write("Crash_42.zip", "PK-bytes");
    FixBoundary();
    EXPECT_EQ(PostDumpFile(Server.Url("/dumpserver/dumpfile.php"), "BRENN", {"k", "g", strArchive, "it broke"}), 1);
    EXPECT_EQ(BodyOf(Server.Request()), PartText("filename", "Crash_42.zip") + PartText("guid", "g") +
                                            PartText("key", "k") + PartText("project", "BRENN") +
                                            PartText("remark", "it broke") +
                                            "-----------------------------0000002900004823\r\n"
                                            "Content-Disposition: form-data; name=\"File\"; filename=\"" +
                                            strArchive +
                                            "\"\r\n"
                                            "Content-Type: application/octet-stream\r\n"
                                            "\r\n"
                                            "PK-bytes"
                                            "\r\n-----------------------------0000002900004823--\r\n");
}

TEST(PostDumpFile, FailsWithoutTheArchive) {
    const TempFolder Folder;
    RawServer Server(Answer(""));
    EXPECT_EQ(PostDumpFile(Server.Url(), "BRENN", {"k", "g", Folder.Path("Crash_42.zip"), ""}), 0);
    EXPECT_TRUE(Server.Stop().empty());
}

TEST(Requests, TurnTheSystemsCodePageIntoUtf8) {
    const ForeignText Text = ForeignTextOfTheCodePage();
    RawServer Server(Answer(""));
    FixBoundary();
    EXPECT_EQ(PostSession(Server.Url(), Text.strAnsi, {"", "", "", "", Text.strAnsi}), 1);
    const std::string strBody = BodyOf(Server.Request());
    EXPECT_THAT(strBody, testing::StartsWith(PartText("clientname", Text.strUtf8)));
    EXPECT_THAT(strBody, testing::HasSubstr(PartText("project", Text.strUtf8)));
}

TEST(Requests, FailWhenTheServerRefuses) {
    RawServer Server(Answer("3", "404 Not Found"));
    int nCrashType = 7;
    EXPECT_EQ(PostActiveMachine(Server.Url(), "P", {}), 0);
    EXPECT_EQ(PostSession(Server.Url(), "P", {}), 0);
    EXPECT_EQ(PostDumpInfo(Server.Url(), "P", {}), 0);
    EXPECT_EQ(PostDumpSolution(Server.Url(), "P", "K", nCrashType), 0);
    EXPECT_EQ(nCrashType, 0);
}

TEST(Requests, FailWithoutAnAddress) {
    EXPECT_EQ(PostSession("", "P", {}), 0);
}

TEST(PostDumpSolution, SendsTheseFields) {
    RawServer Server(Answer("0"));
    int nCrashType = 7;
    FixBoundary();
    EXPECT_EQ(PostDumpSolution(Server.Url("/dump_api/get_dump_type"), "BRENN", "KEY-1", nCrashType), 1);
    EXPECT_EQ(nCrashType, 0);
    const std::string strRequest = Server.Request();
    EXPECT_EQ(FirstLineOf(strRequest), "POST /dump_api/get_dump_type HTTP/1.1");
    EXPECT_EQ(BodyOf(strRequest), FormText({{"dump_key", "KEY-1"}, {"project", "BRENN"}}));
}

struct Solution {
    std::string strAnswer;
    int nCrashType;
};

class DumpSolutionAnswer : public testing::TestWithParam<Solution> {};

TEST_P(DumpSolutionAnswer, IsReadAsANumber) {
    RawServer Server(Answer(GetParam().strAnswer));
    int nCrashType = 7;
    EXPECT_EQ(PostDumpSolution(Server.Url(), "P", "K", nCrashType), 1);
    EXPECT_EQ(nCrashType, GetParam().nCrashType);
}

INSTANTIATE_TEST_SUITE_P(Texts, DumpSolutionAnswer,
                         testing::Values(Solution{"3", 3}, Solution{"3\r\n", 3}, Solution{"3\n", 3}, Solution{" 3", 3},
                                         Solution{"+3", 3}, Solution{"-1", -1}, Solution{"0", 0}, Solution{"", 0},
                                         Solution{"letters", 0}, Solution{"0x3", 0}, Solution{"3 of 4", 3},
                                         Solution{"2147483647", 2147483647},
                                         Solution{"\xEF\xBB\xBF"
                                                  "3",
                                                  0},
                                         Solution{"<html>", 0},
                                         Solution{std::string("3\0"
                                                              "4",
                                                              3),
                                                  3},
                                         Solution{"\xFF\xFE"
                                                  "3",
                                                  0}));

// What a number too big comes to is the runtime's business; it must be the same as for the digits alone.
TEST(PostDumpSolution, TakesNumbersThatAreTooBigAsTheRuntimeDoes) {
    for (const std::string& strDigits : {std::string("2147483648"), std::string("-2147483649"),
                                         std::string("99999999999999999999"), std::string(1024 * 1024, '9')}) {
        RawServer Server(Answer(strDigits));
        int nCrashType = 7;
        EXPECT_EQ(PostDumpSolution(Server.Url(), "P", "K", nCrashType), 1);
        EXPECT_EQ(nCrashType, _wtoi(Wide(strDigits).c_str()));
    }
}

TEST(PostDumpSolution, HasNoNumberWhenTheAnswerWasCut) {
    RawServer Server(RawAnswer("Content-Length: 10\r\n", "3"));
    int nCrashType = 7;
    EXPECT_EQ(PostDumpSolution(Server.Url(), "P", "K", nCrashType), 0);
    EXPECT_EQ(nCrashType, 0);
}

}  // namespace
}  // namespace crashvane
