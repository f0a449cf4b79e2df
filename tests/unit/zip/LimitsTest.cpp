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

// An archive that is filled to its last byte but uLeft by one stored entry of zeros.
class FullArchive : public testing::Test {
  protected:
    void Fill(std::uint64_t uLeft) {
        const std::string strLarge = m_Folder.Write("large.zip", "");
        test::SetSize(strLarge, FourGiB - 1 - Overhead - uLeft);
        ASSERT_EQ(m_Writer.Add(strLarge, "a.zip"), ZipOk);
    }
    void ExpectEnd(std::uint32_t uEntries, std::uint64_t uDirectorySize) {
        const std::uint64_t uOffset = m_Disk.uSize;
        EXPECT_EQ(m_Writer.Finish(), ZipOk);
        EXPECT_EQ(m_Disk.strLast, FromHex("50 4B 05 06 00 00 00 00") + Number(uEntries, 2) + Number(uEntries, 2) +
                                      Number(static_cast<std::uint32_t>(uDirectorySize), 4) +
                                      Number(static_cast<std::uint32_t>(uOffset), 4) + Number(0, 2));
        EXPECT_LT(m_Disk.uSize, FourGiB);
    }

    TempFolder m_Folder;
    BottomlessDisk m_Disk;
    ArchiveWriter m_Writer{std::make_unique<BottomlessOutput>(m_Disk)};
};

TEST_F(FullArchive, TakesAnEntryThatFillsItToTheLastByte) {
    Fill(0);
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("empty.txt", ""), "empty"), ZipNoFile);
    ExpectEnd(1, 60);
    EXPECT_EQ(m_Disk.uSize, FourGiB - 1);
}

TEST_F(FullArchive, TakesWhatStillFitsAndNothingMore) {
    Fill(52 + 60 + 6);  // one more entry of six bytes
    const std::uint64_t uBefore = m_Disk.uSize;
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("seven.zip", "sevenby"), "b.zip"), ZipNoFile);
    EXPECT_EQ(m_Disk.uSize, uBefore);
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("six.zip", "sixbyt"), "b.zip"), ZipOk);
    ExpectEnd(2, 120);
    EXPECT_EQ(m_Disk.uSize, FourGiB - 1);
}

TEST_F(FullArchive, TakesBackWhatDoesNotShrinkEnough) {
    Fill(52 + 60 + 50000);
    const std::uint64_t uBefore = m_Disk.uSize;
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("noise.bin", Noise(100000)), "noise"), ZipNoFile);
    EXPECT_EQ(m_Disk.nTruncated, 1);
    EXPECT_EQ(m_Disk.uSize, uBefore);
    EXPECT_EQ(m_Disk.uAt, uBefore);
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("zeros.bin", std::string(100000, '\0')), "zeros"), ZipOk);
    // What cannot be taken back stays as a gap, and the archive still fits.
    m_Disk.bTruncateFails = true;
    EXPECT_EQ(m_Writer.Add(m_Folder.Write("noise.bin", Noise(100000)), "noise"), ZipNoFile);
    EXPECT_GT(m_Disk.uSize, uBefore);
    EXPECT_EQ(m_Disk.uAt, m_Disk.uSize);
    ExpectEnd(2, 120);
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

TEST(Limits, Allow65535EntriesAndNoMore) {
    TempFolder Folder;
    FakeDisk Disk;
    Disk.strBytes.reserve(10000000);
    ArchiveWriter Writer(std::make_unique<FakeOutput>(Disk));
    const std::string strSource = Folder.Write("empty.txt", "");
    for (int nEntry = 0; nEntry < 65535; ++nEntry) {
        ASSERT_EQ(Writer.Add(strSource, "a.zip"), ZipOk);
    }
    const std::size_t uBefore = Disk.strBytes.size();
    EXPECT_EQ(Writer.Add(strSource, "a.zip"), ZipNoFile);
    EXPECT_EQ(Disk.strBytes.size(), uBefore);
    EXPECT_EQ(Writer.Finish(), ZipOk);
    const Walk Found = WalkArchive(Disk.strBytes);
    EXPECT_EQ(Found.strComplaint, "");
    EXPECT_EQ(Found.Entries.size(), 65535U);
}

}  // namespace
}  // namespace crashvane
