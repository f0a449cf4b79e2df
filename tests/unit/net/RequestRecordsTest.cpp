#include "net/RequestRecords.h"

#include <gtest/gtest.h>

#include "net/SampleReport.h"

namespace crashvane {
namespace {

TEST(ActiveMachineInfo, IsFilledFromTheReport) {
    ActiveMachineInfo Info;
    ASSERT_EQ(FillActiveMachineInfo(&Info, SampleCollection().m_CrashReporter), 1);
    EXPECT_EQ(Info.uuid, "UUID-3");
    EXPECT_EQ(Info.newuuid, "NEW-4");
    EXPECT_EQ(Info.ver, "1.2.3_PAK");
    EXPECT_EQ(Info.verex, "4.5 live");
    EXPECT_EQ(Info.threadtype, "multi");
    EXPECT_EQ(Info.bittype, "x64");
    EXPECT_EQ(Info.videocard, "Some card");
    EXPECT_EQ(Info.cpubrand, "Some CPU");
    EXPECT_EQ(Info.totalphysmem, "3072");
}

TEST(SessionInfo, IsFilledFromTheReport) {
    SessionInfo Info;
    ASSERT_EQ(FillSessionInfo(&Info, SampleCollection().m_CrashReporter), 1);
    EXPECT_EQ(Info.uuid, "UUID-3");
    EXPECT_EQ(Info.newuuid, "NEW-4");
    EXPECT_EQ(Info.ver, "1.2.3_PAK");
    EXPECT_EQ(Info.verex, "4.5 live");
    EXPECT_EQ(Info.clientname, "Client.exe");
}

TEST(DumpInfo, LeavesTheLoginToItsCaller) {
    DumpInfo Info;
    ASSERT_EQ(FillDumpInfo(&Info, SampleCollection().m_CrashReporter), 1);
    EXPECT_EQ(Info.account + Info.rolename + Info.regionname + Info.servername, "");
}

TEST(Records, ThatAreMissingCannotBeFilled) {
    const CrashReporter Report;
    EXPECT_EQ(FillActiveMachineInfo(nullptr, Report), 0);
    EXPECT_EQ(FillDumpInfo(nullptr, Report), 0);
    EXPECT_EQ(FillSessionInfo(nullptr, Report), 0);
}

std::string TimeToFailureOf(long long nSeconds) {
    CrashReporter Report;
    DumpInfo Info;
    Report.Exception.TimeToFailure = nSeconds;
    FillDumpInfo(&Info, Report);
    return Info.timetofailure;
}

TEST(TimeToFailure, IsInWholeMinutesCutTowardsZero) {
    EXPECT_EQ(TimeToFailureOf(0), "0");
    EXPECT_EQ(TimeToFailureOf(59), "0");
    EXPECT_EQ(TimeToFailureOf(60), "1");
    EXPECT_EQ(TimeToFailureOf(125), "2");
    EXPECT_EQ(TimeToFailureOf(-59), "0");
    EXPECT_EQ(TimeToFailureOf(-61), "-1");
}

std::string PhysicalMemoryOf(unsigned long long uBytes) {
    CrashReporter Report;
    ActiveMachineInfo Info;
    Report.Machine.PhysMemory.TotalMemory = uBytes;
    FillActiveMachineInfo(&Info, Report);
    return Info.totalphysmem;
}

TEST(AmountsOfMemory, AreInWholeMebibytes) {
    EXPECT_EQ(PhysicalMemoryOf(3221225472), "3072");
    EXPECT_EQ(PhysicalMemoryOf(1048575), "0");
    EXPECT_EQ(PhysicalMemoryOf(1048576), "1");
    EXPECT_EQ(PhysicalMemoryOf(0), "0");
    EXPECT_EQ(PhysicalMemoryOf(18446744073709551615u), "17592186044415");
}

std::string ProcessInstanceOf(unsigned uInstance) {
    CrashReporter Report;
    DumpInfo Info;
    Report.Exception.ProcessInstance = uInstance;
    FillDumpInfo(&Info, Report);
    return Info.ProcessInstance;
}

TEST(ProcessInstance, IsTakenAsASignedNumber) {
    EXPECT_EQ(ProcessInstanceOf(0), "0");
    EXPECT_EQ(ProcessInstanceOf(4711), "4711");
    EXPECT_EQ(ProcessInstanceOf(2147483647), "2147483647");
    EXPECT_EQ(ProcessInstanceOf(4294967295u), "-1");
}

std::string CustomInfoOf(const std::vector<std::string>& Lines) {
    CrashReporter Report;
    DumpInfo Info;
    Report.CustomInfos = Lines;
    FillDumpInfo(&Info, Report);
    return Info.custominfo;
}

TEST(CustomInfo, PutsASemicolonBehindEachLine) {
    EXPECT_EQ(CustomInfoOf({}), "");
    EXPECT_EQ(CustomInfoOf({"a"}), "a;");
    EXPECT_EQ(CustomInfoOf({"a", "b"}), "a;b;");
    EXPECT_EQ(CustomInfoOf({"", "%s;"}), ";%s;;");
}

TEST(CustomInfo, IsWrittenAnewIntoARecordThatWasUsedBefore) {
    const SampleCollection Sample;
    DumpInfo Info;
    FillDumpInfo(&Info, Sample.m_CrashReporter);
    FillDumpInfo(&Info, Sample.m_CrashReporter);
    EXPECT_EQ(Info.custominfo, "a;b=1;");
}

}  // namespace
}  // namespace crashvane
