#include "ReportTest.h"

namespace crashvane {
namespace {

using testing::ElementsAre;

const char Text[] =
    "<Machine><IP>192.168.1.7</IP><UUID>4C4C4544</UUID><NewUUID>4C4C4545</NewUUID><OS>Windows 10</OS>"
    "<Processor>CPU</Processor><PhysMemory TotalMemory=\"16001\" AvailMemory=\"4001\" />"
    "<Pagefile TotalMemory=\"20001\" AvailMemory=\"5001\" /><VideoCardInfo>"
    "<VideoCardDescription>Graphics 8</VideoCardDescription><VideoCardDriver>graphics.sys</VideoCardDriver>"
    "<VideoDriverVersion>31.0.15</VideoDriverVersion><VideoCardMemory TotalMemory=\"8001\" AvailMemory=\"6001\" />"
    "</VideoCardInfo></Machine>";

class MachineTest : public ReportTest {
  protected:
    int LoadWith(const std::string& strFrom, const std::string& strTo) {
        return m_Machine.LoadMachine(Parsed(Replaced(Text, strFrom, strTo)).Parent());
    }
    Machine m_Machine;
};

TEST_F(MachineTest, LoadsEveryField) {
    EXPECT_EQ(m_Machine.LoadMachine(Parsed(Text).Parent()), 1);
    EXPECT_EQ(m_Machine.IP, "192.168.1.7");
    EXPECT_EQ(m_Machine.UUID, "4C4C4544");
    EXPECT_EQ(m_Machine.NewUUID, "4C4C4545");
    EXPECT_EQ(m_Machine.OS, "Windows 10");
    EXPECT_EQ(m_Machine.Processor, "CPU");
    EXPECT_EQ(m_Machine.PhysMemory.TotalMemory, 16001u);
    EXPECT_EQ(m_Machine.PhysMemory.AvailMemory, 4001u);
    EXPECT_EQ(m_Machine.Pagefile.TotalMemory, 20001u);
    EXPECT_EQ(m_Machine.Pagefile.AvailMemory, 5001u);
    EXPECT_EQ(m_Machine.VideoCardInfo.VideoCardDescription, "Graphics 8");
    EXPECT_EQ(m_Machine.VideoCardInfo.VideoCardDriver, "graphics.sys");
    EXPECT_EQ(m_Machine.VideoCardInfo.VideoDriverVersion, "31.0.15");
    EXPECT_EQ(m_Machine.VideoCardInfo.VideoCardMemory.TotalMemory, 8001u);
    EXPECT_EQ(m_Machine.VideoCardInfo.VideoCardMemory.AvailMemory, 6001u);
    EXPECT_THAT(Checks(), ElementsAre());
}

TEST_F(MachineTest, SavesItsFieldsInOrder) {
    m_Machine = {.IP = "192.168.1.7",
                 .UUID = "4C4C4544",
                 .NewUUID = "4C4C4545",
                 .OS = "Windows 10",
                 .Processor = "CPU",
                 .PhysMemory = {16001, 4001},
                 .Pagefile = {20001, 5001},
                 .VideoCardInfo = {"Graphics 8", "graphics.sys", "31.0.15", {8001, 6001}}};
    Saved Target;
    EXPECT_EQ(m_Machine.SaveMachine(Target.Parent()), 1);
    EXPECT_EQ(Target.Text(), "<Parent>" + std::string(Text) + "</Parent>");
}

TEST_F(MachineTest, NeedsEveryText) {
    for (const char* pszElement : {"<IP>192.168.1.7</IP>", "<UUID>4C4C4544</UUID>", "<NewUUID>4C4C4545</NewUUID>",
                                   "<OS>Windows 10</OS>", "<Processor>CPU</Processor>"}) {
        EXPECT_EQ(LoadWith(pszElement, ""), 0) << pszElement;
    }
    EXPECT_THAT(Checks(), testing::AllOf(testing::SizeIs(5),
                                         testing::Each("ZTLOG_PROCESS_ERROR(nRetCode) in Machine::LoadMachine")));
}

TEST_F(MachineTest, FailsWithoutItsElement) {
    EXPECT_EQ(m_Machine.LoadMachine(Parsed("").Parent()), 0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(pElement) in Machine::LoadMachine"));
}

TEST_F(MachineTest, LogsAMissingMemoryElementInnermostFirst) {
    EXPECT_EQ(LoadWith("<Pagefile ", "<Other "), 0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(pElement) in Memory::LoadMemory",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in Machine::LoadMachine"));
}

TEST_F(MachineTest, LogsAMissingMemoryAttributeInnermostFirst) {
    EXPECT_EQ(LoadWith("TotalMemory=\"16001\" ", ""), 0);
    EXPECT_EQ(m_Machine.PhysMemory.AvailMemory, 0u);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(nRetCode) in Memory::LoadMemory",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in Machine::LoadMachine"));
}

TEST_F(MachineTest, LogsEveryLevelAboveTheCardsMemory) {
    EXPECT_EQ(LoadWith("AvailMemory=\"6001\"", ""), 0);
    EXPECT_EQ(m_Machine.VideoCardInfo.VideoCardMemory.TotalMemory, 8001u);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(nRetCode) in Memory::LoadMemory",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in VideoCard::LoadVideoCard",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in Machine::LoadMachine"));
}

TEST_F(MachineTest, NeedsTheVideoCard) {
    EXPECT_EQ(
        m_Machine.LoadMachine(
            Parsed(Replaced(Replaced(Text, "<VideoCardInfo>", "<Other>"), "</VideoCardInfo>", "</Other>")).Parent()),
        0);
    EXPECT_THAT(Checks(), ElementsAre("ZTLOG_PROCESS_ERROR(pElement) in VideoCard::LoadVideoCard",
                                      "ZTLOG_PROCESS_ERROR(nRetCode) in Machine::LoadMachine"));
}

TEST_F(MachineTest, FailsWithAnEmptyMemoryAttribute) {
    EXPECT_EQ(LoadWith("\"4001\"", "\"\""), 0);
    EXPECT_EQ(LoadWith("\"4001\"", "\" \""), 0);
}

TEST_F(MachineTest, ReadsMemoryAsTheRuntimeScansIt) {
    struct {
        std::string strText;
        unsigned long long ullExpected;
    } const Cases[] = {
        {"18446744073709551615", 18446744073709551615u},
        {"18446744073709551616", 0},
        {"-5", 18446744073709551611u},
        {"0x10", 0},
        {"ff", 77},
        {std::string(10000, '9'), 18446744073709551615u},
    };
    for (const auto& Case : Cases) {
        m_Machine.PhysMemory.TotalMemory = 77;
        EXPECT_EQ(LoadWith("16001", Case.strText), 1) << Case.strText;
        EXPECT_EQ(m_Machine.PhysMemory.TotalMemory, Case.ullExpected) << Case.strText;
    }
}

}  // namespace
}  // namespace crashvane
