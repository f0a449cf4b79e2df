// The writer on an output that fails when told to.
#include "zip/ArchiveWriter.h"

#include <gmock/gmock.h>

#include <ctime>

#include "support/TempFolder.h"
#include "zip/ArchiveWalk.h"
#include "zip/FakeOutput.h"
#include "zip/SourceFiles.h"

namespace crashvane {
namespace {

using test::FakeDisk;
using test::FakeOutput;
using test::Noise;
using test::Number;
using test::TempFolder;
using test::Walk;
using test::WalkArchive;

// An entry of the name "first" takes this much before its data.
constexpr std::size_t LocalPart = 30 + 5 + 17;

class ArchiveWriterTest : public testing::Test {
  protected:
    // The writes of an add: 1 header, 2 to n data, n + 1 header again. Its seeks: 1 back, 2 forward.
    void AddFirst() { ASSERT_EQ(m_Writer.Add(m_Folder.Write("first.txt", "first"), "first"), ZipOk); }
    std::string Source(const std::string& strBytes) { return m_Folder.Write("source.bin", strBytes); }
    // What an unpacking tool finds in the end.
    Walk FinishAndWalk() {
        EXPECT_EQ(m_Writer.Finish(), unsigned{ZipOk});
        EXPECT_TRUE(m_Disk.bClosed);
        return WalkArchive(m_Disk.strBytes);
    }
    void ExpectSpoiledWithTheFirstIntact(std::uint32_t uGaps) {
        EXPECT_EQ(m_Writer.Add(Source("next"), "next"), ZipFailedBefore);
        const Walk Found = FinishAndWalk();
        EXPECT_EQ(Found.strComplaint, "");
        ASSERT_EQ(Found.Entries.size(), 1U);
        EXPECT_EQ(Found.Entries[0].strContent, "first");
        EXPECT_EQ(Found.uGaps, uGaps);
    }

    TempFolder m_Folder;
    FakeDisk m_Disk;
    ArchiveWriter m_Writer{std::make_unique<FakeOutput>(m_Disk)};
};

TEST_F(ArchiveWriterTest, FailsForGoodWhenALocalHeaderIsNotWritten) {
    AddFirst();
    m_Disk.ShortWrites[m_Disk.nWrites + 1] = 10;
    EXPECT_EQ(m_Writer.Add(Source("second"), "second"), ZipWriteError);
    ExpectSpoiledWithTheFirstIntact(10);  // the offset went on by what was really written
}

TEST_F(ArchiveWriterTest, FailsForGoodWhenStoredDataIsCutShort) {
    AddFirst();
    m_Disk.ShortWrites[m_Disk.nWrites + 2] = 3;
    EXPECT_EQ(m_Writer.Add(Source("second"), "a.zip"), ZipSizeMismatch);
    ExpectSpoiledWithTheFirstIntact(LocalPart + 3);
}

TEST_F(ArchiveWriterTest, FailsForGoodWhenTheSecondBlockOfStoredDataIsCutShort) {
    AddFirst();
    m_Disk.ShortWrites[m_Disk.nWrites + 3] = 0;
    EXPECT_EQ(m_Writer.Add(Source(std::string(16384 * 3, 'x')), "a.zip"), ZipSizeMismatch);
    ExpectSpoiledWithTheFirstIntact(LocalPart + 16384);
}

TEST_F(ArchiveWriterTest, FailsForGoodWhenDeflatedDataIsNotWritten) {
    AddFirst();
    m_Disk.ShortWrites[m_Disk.nWrites + 3] = 100;
    EXPECT_EQ(m_Writer.Add(Source(Noise(50000)), "noise"), ZipWriteError);
    ExpectSpoiledWithTheFirstIntact(LocalPart + 16384 + 100);
}

TEST_F(ArchiveWriterTest, FailsForGoodWhenItCannotSeekBack) {
    AddFirst();
    const int nNext = m_Disk.nSeeks + 1;
    m_Disk.SeekFails = [=](int nSeek) { return nSeek == nNext; };
    EXPECT_EQ(m_Writer.Add(Source("second"), "a.zip"), ZipSeekError);
    ExpectSpoiledWithTheFirstIntact(LocalPart + 6);
}

TEST_F(ArchiveWriterTest, FailsForGoodWhenItCannotSeekForward) {
    AddFirst();
    const int nNext = m_Disk.nSeeks + 2;
    m_Disk.SeekFails = [=](int nSeek) { return nSeek == nNext; };
    EXPECT_EQ(m_Writer.Add(Source("second"), "a.zip"), ZipSeekError);
    ExpectSpoiledWithTheFirstIntact(LocalPart + 6);
}

TEST_F(ArchiveWriterTest, FailsForGoodWhenALocalHeaderIsNotRewritten) {
    AddFirst();
    m_Disk.ShortWrites[m_Disk.nWrites + 3] = 20;
    EXPECT_EQ(m_Writer.Add(Source("second"), "a.zip"), ZipWriteError);
    ExpectSpoiledWithTheFirstIntact(LocalPart + 6);
}

TEST_F(ArchiveWriterTest, WritesNoDirectoryOverEntriesWhenTheEndIsLost) {
    AddFirst();
    m_Disk.SeekFails = [](int) { return true; };
    EXPECT_EQ(m_Writer.Add(Source("second"), "a.zip"), ZipSeekError);
    const int nWrites = m_Disk.nWrites;
    EXPECT_EQ(m_Writer.Finish(), ZipWriteError);
    EXPECT_EQ(m_Disk.nWrites, nWrites);
    EXPECT_TRUE(m_Disk.bClosed);
}

TEST_F(ArchiveWriterTest, StopsTheDirectoryAtTheFirstFailedWrite) {
    AddFirst();
    AddFirst();
    AddFirst();
    const int nWrites = m_Disk.nWrites;
    m_Disk.ShortWrites[nWrites + 2] = 1;
    EXPECT_EQ(m_Writer.Finish(), ZipWriteError);
    EXPECT_EQ(m_Disk.nWrites, nWrites + 2);
    EXPECT_TRUE(m_Disk.bClosed);
}

TEST_F(ArchiveWriterTest, ReportsAnEndRecordThatIsNotWritten) {
    AddFirst();
    m_Disk.ShortWrites[m_Disk.nWrites + 2] = 21;
    EXPECT_EQ(m_Writer.Finish(), ZipWriteError);
}

TEST_F(ArchiveWriterTest, AddsNothingOnceItIsFinished) {
    AddFirst();
    EXPECT_EQ(m_Writer.Finish(), ZipOk);
    const std::string strBefore = m_Disk.strBytes;
    EXPECT_EQ(m_Writer.Add(Source("late"), "late"), ZipEnded);
    EXPECT_EQ(m_Writer.Finish(), ZipOk);
    EXPECT_EQ(m_Disk.strBytes, strBefore);
}

TEST_F(ArchiveWriterTest, WantsASource) {
    EXPECT_EQ(m_Writer.Add("", "name"), ZipBadArgs);
}

TEST_F(ArchiveWriterTest, WritesAHeaderOfTheSourcesSizeFirst) {
    std::string strHeader;
    m_Disk.BeforeWrite = [&](int nWrite) {
        if (nWrite == 2) {
            strHeader = m_Disk.strBytes;
        }
    };
    EXPECT_EQ(m_Writer.Add(Source("stored"), "a.zip"), ZipOk);
    ASSERT_EQ(strHeader.size(), 30U + 5 + 17);
    EXPECT_EQ(strHeader.substr(6, 4), Number(8, 2) + Number(0, 2));                   // flags, method
    EXPECT_EQ(strHeader.substr(14, 12), Number(0, 4) + Number(6, 4) + Number(6, 4));  // CRC, sizes
    m_Disk.nWrites = 0;
    m_Disk.strBytes.clear();
    ArchiveWriter Other(std::make_unique<FakeOutput>(m_Disk));
    EXPECT_EQ(Other.Add(Source("deflated"), "a.txt"), ZipOk);
    EXPECT_EQ(strHeader.substr(6, 4), Number(8, 2) + Number(8, 2));
    EXPECT_EQ(strHeader.substr(14, 12), Number(0, 4) + Number(0, 4) + Number(8, 4));
}

// The seconds that the system's clock shows here, as if it showed UTC.
std::uint32_t LocalSeconds() {
    SYSTEMTIME Local = {};
    GetLocalTime(&Local);
    std::tm Calendar = {};
    Calendar.tm_year = Local.wYear - 1900;
    Calendar.tm_mon = Local.wMonth - 1;
    Calendar.tm_mday = Local.wDay;
    Calendar.tm_hour = Local.wHour;
    Calendar.tm_min = Local.wMinute;
    Calendar.tm_sec = Local.wSecond;
    return static_cast<std::uint32_t>(_mkgmtime(&Calendar));
}

TEST_F(ArchiveWriterTest, AssumesTheSourcesFactsWhenTheArchivesPositionIsUnknown) {
    m_Disk.bKnowsPosition = false;
    std::string strHeader;
    m_Disk.BeforeWrite = [&](int nWrite) {
        if (nWrite == 2) {
            strHeader = m_Disk.strBytes;
        }
    };
    const std::uint32_t uBefore = LocalSeconds();
    const std::string strSource = Source("stored");
    test::SetTimes(strSource, 1709210096, 1709210097);
    EXPECT_EQ(m_Writer.Add(strSource, "a.zip"), ZipOk);
    const std::uint32_t uAfter = LocalSeconds();
    EXPECT_EQ(strHeader.substr(18, 8), Number(0xFFFFFFFF, 4) + Number(0xFFFFFFFF, 4));
    const Walk Found = FinishAndWalk();
    EXPECT_EQ(Found.strComplaint, "");
    ASSERT_EQ(Found.Entries.size(), 1U);
    EXPECT_EQ(Found.Entries[0].strContent, "stored");
    EXPECT_EQ(Found.Entries[0].uExternal, 0x80000000U);
    const std::string strExtra = Found.Entries[0].strLocalExtra;
    EXPECT_EQ(strExtra.substr(5, 4), strExtra.substr(9, 4));
    EXPECT_EQ(strExtra.substr(5, 4), strExtra.substr(13, 4));
    bool bNow = false;
    for (std::uint32_t uSecond = uBefore; uSecond <= uAfter; ++uSecond) {
        bNow = bNow ||
               (strExtra.substr(5, 4) == Number(uSecond, 4) &&
                Found.Entries[0].uTime == uSecond / 3600 % 24 * 2048 + uSecond / 60 % 60 * 32 + uSecond % 60 * 2 % 32);
    }
    EXPECT_TRUE(bNow);
}

TEST_F(ArchiveWriterTest, FollowsAnEntryByADescriptorWhenTheOutputCannotSeek) {
    m_Disk.bCanSeek = false;
    m_Disk.SeekFails = [](int) { return true; };
    EXPECT_EQ(m_Writer.Add(Source(std::string(100, 'x')), "a.txt"), ZipOk);
    EXPECT_EQ(m_Writer.Add(Source("stored"), "a.zip"), ZipOk);
    EXPECT_EQ(m_Writer.Finish(), ZipOk);
    const Walk Found = WalkArchive(m_Disk.strBytes, 8);
    EXPECT_EQ(Found.strComplaint, "");
    EXPECT_EQ(Found.uGaps, 0U);
    ASSERT_EQ(Found.Entries.size(), 2U);
    EXPECT_EQ(Found.Entries[0].strContent, std::string(100, 'x'));
    EXPECT_EQ(Found.Entries[1].strContent, "stored");
}

TEST_F(ArchiveWriterTest, RefusesAStoredSizeThatChangedWhenTheOutputCannotSeek) {
    m_Disk.bCanSeek = false;
    const std::string strSource = Source("stored");
    m_Disk.BeforeWrite = [&](int nWrite) {
        if (nWrite == 1) {
            test::SetSize(strSource, 3);
        }
    };
    EXPECT_EQ(m_Writer.Add(strSource, "a.zip"), ZipNoChange);
    EXPECT_EQ(m_Writer.Add(Source("next"), "next"), ZipOk);
    EXPECT_EQ(m_Writer.Finish(), ZipOk);
    const Walk Found = WalkArchive(m_Disk.strBytes, 8);
    EXPECT_EQ(Found.strComplaint, "");
    EXPECT_EQ(Found.Entries.size(), 1U);
    EXPECT_EQ(Found.uGaps, LocalPart + 3);
}

TEST_F(ArchiveWriterTest, ReportsADescriptorThatIsNotWritten) {
    m_Disk.bCanSeek = false;
    m_Disk.ShortWrites[3] = 15;
    EXPECT_EQ(m_Writer.Add(Source("stored"), "a.zip"), ZipWriteError);
    EXPECT_EQ(m_Writer.Add(Source("next"), "next"), ZipFailedBefore);
}

TEST_F(ArchiveWriterTest, WritesTheSameToTheFakeAsToADisk) {
    auto pFile = std::make_unique<FileOutput>();
    const std::string strArchive = m_Folder.Path("real.zip");
    ASSERT_TRUE(pFile->Create(strArchive));
    ArchiveWriter Real(std::move(pFile));
    // Files of their own: reading one may change its access time.
    for (const char* pszName : {"a.zip", "b.txt"}) {
        const std::string strSource = m_Folder.Write(pszName, Noise(40000) + std::string(40000, 'x'));
        EXPECT_EQ(m_Writer.Add(strSource, pszName), ZipOk);
        EXPECT_EQ(Real.Add(strSource, pszName), ZipOk);
    }
    EXPECT_EQ(m_Writer.Finish(), ZipOk);
    EXPECT_EQ(Real.Finish(), ZipOk);
    std::string strReal = TempFolder::Read(strArchive);
    ASSERT_EQ(strReal.size(), m_Disk.strBytes.size());
    const Walk Found = WalkArchive(strReal);
    for (const test::WalkedEntry& Each : Found.Entries) {
        const std::size_t uAccessTimeAt = Each.uOffset + 30 + Each.strName.size() + 9;
        strReal.replace(uAccessTimeAt, 4, m_Disk.strBytes.substr(uAccessTimeAt, 4));
    }
    EXPECT_EQ(strReal, m_Disk.strBytes);
}

}  // namespace
}  // namespace crashvane
