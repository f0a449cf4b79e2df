// What does not fit 32-bit offsets and 16-bit counts is refused, and the archive stays whole.
#include <gmock/gmock.h>

#include "support/TempFolder.h"
#include "zip/ArchiveWalk.h"
#include "zip/ArchiveWriter.h"
#include "zip/FakeOutput.h"
#include "zip/SourceFiles.h"

namespace crashvane {
namespace {

using test::BottomlessDisk;
using test::BottomlessOutput;
using test::FakeDisk;
using test::FakeOutput;
using test::FromHex;
using test::Noise;
using test::Number;
using test::TempFolder;
using test::Walk;
using test::WalkArchive;

constexpr std::uint64_t FourGiB = 0x100000000;
// Everything in an archive of one entry with a name of five bytes but its data.
constexpr std::uint64_t Overhead = (30 + 5 + 17) + (46 + 5 + 9) + 22;

TEST(Limits, RefuseASourceOfFourGiB) {
    TempFolder Folder;
    FakeDisk Disk;
    ArchiveWriter Writer(std::make_unique<FakeOutput>(Disk));
    const std::string strHuge = Folder.Write("huge.dmp", "");
    test::SetSize(strHuge, FourGiB);
    EXPECT_EQ(Writer.Add(strHuge, "huge.dmp"), ZipNoFile);
    EXPECT_EQ(Writer.Add(strHuge, "huge.zip"), ZipNoFile);
    EXPECT_EQ(Disk.nWrites, 0);
    EXPECT_EQ(Writer.Add(Folder.Write("small.txt", "small"), "small.txt"), ZipOk);
    EXPECT_EQ(Writer.Finish(), ZipOk);
    EXPECT_EQ(WalkArchive(Disk.strBytes).strComplaint, "");
}

TEST(Limits, RefuseAStoredSourceThatIsAByteTooLongForTheArchive) {
    TempFolder Folder;
    BottomlessDisk Disk;
    ArchiveWriter Writer(std::make_unique<BottomlessOutput>(Disk));
    const std::string strLarge = Folder.Write("large.zip", "");
    test::SetSize(strLarge, FourGiB - Overhead);
    EXPECT_EQ(Writer.Add(strLarge, "a.zip"), ZipNoFile);
    EXPECT_EQ(Disk.uSize, 0U);
}

// An archive that is filled to its last byte but uLeft by one stored entry of zeros. The limit is a small one: the
// arithmetic is the same and the test takes no gigabytes.
class FullArchive : public testing::Test {
  protected:
    static constexpr std::uint64_t Limit = 1000000;

    void Fill(std::uint64_t uLeft) {
        const std::string strLarge = m_Folder.Write("large.zip", std::string(Limit - Overhead - uLeft, '\0'));
        ASSERT_EQ(m_Writer.Add(strLarge, "a.zip"), ZipOk);
    }
    Walk FinishAndWalk() {
        EXPECT_EQ(m_Writer.Finish(), ZipOk);
        EXPECT_LE(m_Disk.strBytes.size(), Limit);
        Walk Found = WalkArchive(m_Disk.strBytes);
        EXPECT_EQ(Found.strComplaint, "");
        return Found;
    }

    TempFolder m_Folder;
    FakeDisk m_Disk;
    ArchiveWriter m_Writer{std::make_unique<FakeOutput>(m_Disk), ArchiveLimits{Limit, 0xFFFF}};
};

TEST_F(FullArchive, TakesAnEntryThatFillsItToTheLastByte) {
    Fill(0);
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("empty.txt", ""), "empty"), ZipNoFile);
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("empty.zip", ""), "b.zip"), ZipNoFile);
    EXPECT_EQ(FinishAndWalk().Entries.size(), 1U);
    EXPECT_EQ(m_Disk.strBytes.size(), Limit);
}

TEST_F(FullArchive, TakesWhatStillFitsAndNothingMore) {
    Fill(52 + 60 + 6);  // one more entry of six bytes
    const int nWrites = m_Disk.nWrites;
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("seven.zip", "sevenby"), "b.zip"), ZipNoFile);
    EXPECT_EQ(m_Disk.nWrites, nWrites);
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("six.zip", "sixbyt"), "b.zip"), ZipOk);
    EXPECT_EQ(FinishAndWalk().Entries.size(), 2U);
    EXPECT_EQ(m_Disk.strBytes.size(), Limit);
}

TEST_F(FullArchive, TakesBackWhatDoesNotShrinkEnough) {
    Fill(52 + 60 + 50000);
    const std::string strBefore = m_Disk.strBytes;
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("noise.bin", Noise(100000)), "noise"), ZipNoFile);
    EXPECT_TRUE(m_Disk.strBytes == strBefore);
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("zeros.bin", std::string(100000, '\0')), "zeros"), ZipOk);
    const Walk Found = FinishAndWalk();
    EXPECT_EQ(Found.Entries.size(), 2U);
    EXPECT_EQ(Found.uGaps, 0U);
}

TEST_F(FullArchive, KeepsAGapWhereNothingCanBeTakenBack) {
    Fill(52 + 60 + 50000);
    const int nTruncation = m_Disk.nSeeks + 1;
    m_Disk.SeekFails = [=](int nSeek) { return nSeek == nTruncation; };
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("noise.bin", Noise(100000)), "noise"), ZipNoFile);
    const Walk Found = FinishAndWalk();
    EXPECT_EQ(Found.Entries.size(), 1U);
    EXPECT_EQ(Found.uGaps, 52U + 3 * 16384);
}

TEST_F(FullArchive, FailsForGoodWhereTheEndIsLost) {
    Fill(52 + 60 + 50000);
    m_Disk.SeekFails = [](int) { return true; };
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("noise.bin", Noise(100000)), "noise"), ZipSeekError);
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("next.txt", "next"), "next"), ZipFailedBefore);
}

TEST(Limits, FillFourGiBLessOneByte) {
    TempFolder Folder;
    BottomlessDisk Disk;
    ArchiveWriter Writer(std::make_unique<BottomlessOutput>(Disk));
    const std::string strLarge = Folder.Write("large.zip", "");
    test::SetSize(strLarge, FourGiB - 1 - Overhead);
    EXPECT_EQ(Writer.Add(strLarge, "a.zip"), ZipOk);
    EXPECT_EQ(Writer.Add(Folder.Write("empty.txt", ""), "empty"), ZipNoFile);
    EXPECT_EQ(Writer.Finish(), ZipOk);
    EXPECT_EQ(Disk.uSize, FourGiB - 1);
    // One entry, 60 bytes of directory, 82 bytes before the end.
    EXPECT_EQ(Disk.strLast, FromHex("50 4B 05 06  00 00 00 00  01 00  01 00  3C 00 00 00  AD FF FF FF  00 00"));
}

TEST(Limits, TakeBackToDisk) {
    TempFolder Folder;
    auto pFile = std::make_unique<FileOutput>();
    FileOutput& File = *pFile;
    const std::string strPath = Folder.Path("archive.zip");
    ASSERT_TRUE(File.Create(strPath));
    EXPECT_EQ(File.Write("0123456789", 10), 10U);
    EXPECT_TRUE(File.Truncate(4));
    std::uint64_t uPosition = 0;
    EXPECT_TRUE(File.Position(uPosition));
    EXPECT_EQ(uPosition, 4U);
    EXPECT_EQ(File.Write("x", 1), 1U);
    pFile.reset();
    EXPECT_EQ(TempFolder::Read(strPath), "0123x");
}

TEST(Limits, AreThoseOfTheFormat) {
    EXPECT_EQ(ArchiveLimits().uBytes, 4294967295U);
    EXPECT_EQ(ArchiveLimits().uEntries, 65535U);
}

TEST(Limits, AllowSoManyEntriesAndNoMore) {
    TempFolder Folder;
    FakeDisk Disk;
    ArchiveWriter Writer(std::make_unique<FakeOutput>(Disk), ArchiveLimits{0xFFFFFFFF, 3});
    const std::string strSource = Folder.Write("a.txt", "text");
    for (int nEntry = 0; nEntry < 3; ++nEntry) {
        EXPECT_EQ(Writer.Add(strSource, "a.zip"), ZipOk);
    }
    const int nWrites = Disk.nWrites;
    EXPECT_EQ(Writer.Add(strSource, "a.zip"), ZipNoFile);
    EXPECT_EQ(Disk.nWrites, nWrites);
    EXPECT_EQ(Writer.Finish(), ZipOk);
    const Walk Found = WalkArchive(Disk.strBytes);
    EXPECT_EQ(Found.strComplaint, "");
    EXPECT_EQ(Found.Entries.size(), 3U);
}

}  // namespace
}  // namespace crashvane
