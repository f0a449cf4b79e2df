// The writer as its users see it: real files, a real archive.
#include "zip/ZipWriter.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "support/TempFolder.h"
#include "zip/ArchiveWalk.h"
#include "zip/SourceFiles.h"
#include "zip/ZipHandle.h"

namespace crashvane {
namespace {

using test::FromHex;
using test::Noise;
using test::Number;
using test::TempFolder;
using test::Walk;
using test::WalkArchive;
using test::WalkedEntry;

constexpr std::int64_t LeapDay = 1709210096;  // 2024-02-29 12:34:56

class ZipWriterTest : public testing::Test {
  protected:
    void SetUp() override { ASSERT_NE(m_pArchive, nullptr); }
    void TearDown() override {
        if (m_pArchive != nullptr) {
            ZipWriter::Close(m_pArchive);
        }
    }
    unsigned Close() {
        const unsigned uResult = ZipWriter::Close(m_pArchive);
        m_pArchive = nullptr;
        return uResult;
    }
    std::string CloseAndRead() {
        EXPECT_EQ(Close(), unsigned{ZipOk});
        return TempFolder::Read(m_strArchive);
    }
    Walk CloseAndWalk() {
        Walk Found = WalkArchive(CloseAndRead());
        EXPECT_EQ(Found.strComplaint, "");
        EXPECT_EQ(Found.uGaps, 0U);
        return Found;
    }
    // The one entry of an archive to which a file of these bytes was added.
    WalkedEntry AddAndWalk(const std::string& strName, const std::string& strBytes) {
        EXPECT_EQ(ZipWriter::AddFile(m_pArchive, m_Folder.Write("source.bin", strBytes), strName), 1);
        const Walk Found = CloseAndWalk();
        EXPECT_EQ(Found.Entries.size(), 1U);
        return Found.Entries.empty() ? WalkedEntry() : Found.Entries[0];
    }
    // Leaves a last result that nothing but an add of a bad name leaves.
    void MarkLastResult() {
        EXPECT_EQ(ZipWriter::AddFile(m_pArchive, m_Folder.Write("mark.txt", ""), ""), 0);
        EXPECT_EQ(ZipWriter::LastResult(), ZipBadArgs);
    }
    void ExpectNotAdded(const std::string& strSource, ZipResult Result) {
        EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource, "entry"), 0);
        EXPECT_EQ(ZipWriter::LastResult(), Result);
    }

    TempFolder m_Folder;
    const std::string m_strArchive = m_Folder.Path("archive.zip");
    ZipArchive* m_pArchive = ZipWriter::CreateArchive(m_strArchive);
};

TEST_F(ZipWriterTest, WritesAnEmptyArchiveAsTheEndRecordAlone) {
    EXPECT_EQ(CloseAndRead(), FromHex("50 4B 05 06  00 00 00 00  00 00 00 00  00 00 00 00  00 00 00 00  00 00"));
}

TEST_F(ZipWriterTest, WritesAWholeArchiveByteForByte) {
    const std::string strOld = m_Folder.Write("old.ZIP", "hello");
    const std::string strNone = m_Folder.Write("none.gz", "");
    test::SetTimes(strOld, LeapDay, LeapDay + 1);
    test::SetTimes(strNone, 0, 0x01020304);
    ASSERT_TRUE(SetFileAttributesA(strNone.c_str(), FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_READONLY));
    const std::string strOldCreated = Number(test::CreationTime(strOld), 4);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strOld), 1);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strNone, "logs\\none.gz"), 1);
    const std::string strBytes = CloseAndRead();
    // A read-only file cannot be opened to be asked.
    SetFileAttributesA(strNone.c_str(), FILE_ATTRIBUTE_ARCHIVE);
    const std::string strNoneCreated = Number(test::CreationTime(strNone), 4);

    const std::string strExpected =
        FromHex(
            "50 4B 03 04  14 00  00 00  00 00  50 64 5D 58  86 A6 10 36  05 00 00 00  05 00 00 00  07 00  11 00"
            "\"old.ZIP\"  55 54  0D 00  07  F0 79 E0 65  F1 79 E0 65") +
        strOldCreated + "hello" +
        FromHex(
            "50 4B 03 04  14 00  00 00  00 00  00 00 21 EC  00 00 00 00  00 00 00 00  00 00 00 00  0C 00  11 00"
            "\"logs/none.gz\"  55 54  0D 00  07  00 00 00 00  04 03 02 01") +
        strNoneCreated +
        FromHex(
            "50 4B 01 02  17 0B  14 00  00 00  00 00  50 64 5D 58  86 A6 10 36  05 00 00 00  05 00 00 00"
            "07 00  09 00  00 00  00 00  00 00  20 00 80 81  00 00 00 00  \"old.ZIP\""
            "55 54  05 00  07  F0 79 E0 65"
            "50 4B 01 02  17 0B  14 00  00 00  00 00  00 00 21 EC  00 00 00 00  00 00 00 00  00 00 00 00"
            "0C 00  09 00  00 00  00 00  00 00  21 00 00 81  3B 00 00 00  \"logs/none.gz\""
            "55 54  05 00  07  00 00 00 00"
            "50 4B 05 06  00 00  00 00  02 00  02 00  81 00 00 00  76 00 00 00  00 00");
    EXPECT_EQ(strBytes, strExpected);
}

TEST_F(ZipWriterTest, DeflatesReportsAndDumpsAndStoresArchives) {
    const std::string strSource = m_Folder.Write("source.bin", std::string(1000, 'x'));
    for (const char* pszName : {"CrashReport.xml", "dump.dmp", "old.ZIP", "a.tgz"}) {
        EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource, pszName), 1);
    }
    const Walk Found = CloseAndWalk();
    ASSERT_EQ(Found.Entries.size(), 4U);
    EXPECT_EQ(Found.Entries[0].uMethod, 8U);
    EXPECT_EQ(Found.Entries[1].uMethod, 8U);
    EXPECT_LT(Found.Entries[1].uCompressedSize, 100U);
    for (const WalkedEntry& Stored : {Found.Entries[2], Found.Entries[3]}) {
        EXPECT_EQ(Stored.uMethod, 0U);
        EXPECT_EQ(Stored.uCompressedSize, 1000U);
        EXPECT_EQ(Stored.uUncompressedSize, 1000U);
        EXPECT_EQ(Stored.uInternal, 0U);
    }
}

TEST_F(ZipWriterTest, WritesSlashesForBackslashes) {
    EXPECT_EQ(AddAndWalk("logs\\a.txt", "text").strName, "logs/a.txt");
}

TEST_F(ZipWriterTest, NamesAnEntryAfterItsFileWhenNotTold) {
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, m_Folder.Write("sub\\deep\\dump.dmp", "text")), 1);
    const Walk Found = CloseAndWalk();
    ASSERT_EQ(Found.Entries.size(), 1U);
    EXPECT_EQ(Found.Entries[0].strName, "dump.dmp");
}

TEST_F(ZipWriterTest, DeflatesAnEmptyFileToATextOfAFewBytes) {
    const WalkedEntry Entry = AddAndWalk("empty.txt", "");
    EXPECT_EQ(Entry.uMethod, 8U);
    EXPECT_EQ(Entry.uUncompressedSize, 0U);
    EXPECT_GT(Entry.uCompressedSize, 0U);
    EXPECT_LE(Entry.uCompressedSize, 5U);
    EXPECT_EQ(Entry.uCrc, 0U);
    EXPECT_EQ(Entry.uInternal, 1U);
}

TEST_F(ZipWriterTest, StreamsLargeFilesWhole) {
    const std::string strBytes = Noise(200000) + std::string(300000, '\0') + Noise(100001);
    EXPECT_TRUE(AddAndWalk("large.dmp", strBytes).strContent == strBytes);
}

TEST_F(ZipWriterTest, StoresLargeFilesWhole) {
    const std::string strBytes = Noise(16384 * 5 + 1);
    EXPECT_TRUE(AddAndWalk("large.zip", strBytes).strContent == strBytes);
}

TEST_F(ZipWriterTest, TakesFilesOfWholeAndOfAlmostWholeBlocks) {
    for (const std::size_t uSize : {1U, 16383U, 16384U, 16385U, 32768U, 49152U}) {
        const std::string strSource = m_Folder.Write("source.bin", Noise(uSize));
        EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource, "deflated"), 1);
        EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource, "stored.zip"), 1);
    }
    const Walk Found = CloseAndWalk();
    ASSERT_EQ(Found.Entries.size(), 12U);
    EXPECT_EQ(Found.Entries[5].uUncompressedSize, 16384U);
    EXPECT_EQ(Found.Entries[11].uUncompressedSize, 49152U);
}

TEST_F(ZipWriterTest, JudgesTextByTheBytesAndNotAsTheCompressorDoes) {
    // One control character makes the compressor say binary; bytes above 127 it takes for text.
    const std::string strText = m_Folder.Write("text.bin", std::string(100, 'a') + "\x01");
    const std::string strBinary = m_Folder.Write("binary.bin", "abc" + std::string(100, '\xE4'));
    const std::string strLate = m_Folder.Write("late.bin", std::string(16384, 'a') + std::string(100000, '\0'));
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strText), 1);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strBinary), 1);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strLate), 1);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strText, "stored.zip"), 1);
    const Walk Found = CloseAndWalk();
    ASSERT_EQ(Found.Entries.size(), 4U);
    EXPECT_EQ(Found.Entries[0].uInternal, 1U);
    EXPECT_EQ(Found.Entries[1].uInternal, 0U);
    EXPECT_EQ(Found.Entries[2].uInternal, 1U);
    EXPECT_EQ(Found.Entries[3].uInternal, 0U);
}

TEST_F(ZipWriterTest, DatesAnEntryByItsLastWriteInUtc) {
    const std::string strSource = m_Folder.Write("a.txt", "text");
    test::SetTimes(strSource, LeapDay, LeapDay + 3);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource), 1);
    const std::string strCreated = Number(test::CreationTime(strSource), 4);
    const Walk Found = CloseAndWalk();
    ASSERT_EQ(Found.Entries.size(), 1U);
    EXPECT_EQ(Found.Entries[0].uTime, 12U * 2048 + 34 * 32 + 16);
    EXPECT_EQ(Found.Entries[0].uDate, 44U * 512 + 2 * 32 + 29);
    EXPECT_EQ(Found.Entries[0].strLocalExtra, FromHex("55 54 0D 00 07 F0 79 E0 65 F3 79 E0 65") + strCreated);
    EXPECT_EQ(Found.Entries[0].strCentralExtra, FromHex("55 54 05 00 07 F0 79 E0 65"));
}

TEST_F(ZipWriterTest, MarksReadOnlyFiles) {
    const std::string strSource = m_Folder.Write("a.txt", "text");
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource), 1);
    SetFileAttributesA(strSource.c_str(), FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_READONLY);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource), 1);
    SetFileAttributesA(strSource.c_str(), FILE_ATTRIBUTE_ARCHIVE);
    const Walk Found = CloseAndWalk();
    ASSERT_EQ(Found.Entries.size(), 2U);
    EXPECT_EQ(Found.Entries[0].uExternal, 0x81800020U);
    EXPECT_EQ(Found.Entries[1].uExternal, 0x81000021U);
}

TEST_F(ZipWriterTest, MarksAsExecutableOnlyWhatBearsTheOddMark) {
    std::string strProgram(200, 'x');
    strProgram.replace(0, 2, "MZ");
    strProgram.replace(36, 4, Number(100, 4));
    strProgram.replace(100, 4, FromHex("50 45 00 00"));
    std::string strOdd = strProgram;
    strOdd.replace(0, 2, "\xAD\x54");
    std::string strOther = strOdd;
    strOther.replace(100, 4, FromHex("50 45 00 01"));
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, m_Folder.Write("program.exe", strProgram)), 1);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, m_Folder.Write("odd.exe", strOdd)), 1);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, m_Folder.Write("other.exe", strOther)), 1);
    const Walk Found = CloseAndWalk();
    ASSERT_EQ(Found.Entries.size(), 3U);
    EXPECT_EQ(Found.Entries[0].uExternal, 0x81800020U);
    EXPECT_EQ(Found.Entries[1].uExternal, 0x81C00020U);
    EXPECT_EQ(Found.Entries[2].uExternal, 0x81800020U);
    EXPECT_EQ(Found.Entries[1].strContent, strOdd);  // read from the start all the same
}

// The three next numbers of the sequence that starts at uSeed and has lost twelve.
std::vector<int> AfterTwelve(unsigned uSeed) {
    std::srand(uSeed);
    for (int nDrawn = 0; nDrawn < 12; ++nDrawn) {
        std::rand();
    }
    return {std::rand(), std::rand(), std::rand()};
}

TEST_F(ZipWriterTest, ReseedsTheRandomSequenceAndDrawsTwelveAtEveryAdd) {
    const std::string strSource = m_Folder.Write("a.zip", "text");
    const auto uDesktop = static_cast<unsigned>(reinterpret_cast<std::uintptr_t>(GetDesktopWindow()));
    for (int nAdd = 0; nAdd < 2; ++nAdd) {
        std::srand(1);
        const DWORD dwBefore = GetTickCount();
        EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource), 1);
        const std::vector<int> Drawn = {std::rand(), std::rand(), std::rand()};
        const DWORD dwAfter = GetTickCount();
        bool bFound = false;
        for (DWORD dwTick = dwBefore; dwTick <= dwAfter; ++dwTick) {
            bFound = bFound || AfterTwelve(dwTick ^ uDesktop) == Drawn;
        }
        EXPECT_TRUE(bFound) << nAdd;
    }
}

TEST_F(ZipWriterTest, LeavesTheRandomSequenceAloneWhenNothingIsWritten) {
    std::srand(1);
    MarkLastResult();
    EXPECT_EQ(std::rand(), 41);
    EXPECT_EQ(std::rand(), 18467);
}

TEST_F(ZipWriterTest, LeavesTheLastResultAloneForASourceThatIsNoFile) {
    MarkLastResult();
    ExpectNotAdded(m_Folder.Path("missing.dmp"), ZipBadArgs);
    ExpectNotAdded(m_Folder.MakeFolder("folder"), ZipBadArgs);
    ExpectNotAdded("", ZipBadArgs);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, m_Folder.Path("missing.dmp")), 0);
    EXPECT_EQ(ZipWriter::LastResult(), ZipBadArgs);
    EXPECT_TRUE(CloseAndWalk().Entries.empty());
}

TEST_F(ZipWriterTest, LeavesTheLastResultAloneForNoHandle) {
    MarkLastResult();
    EXPECT_EQ(ZipWriter::AddFile(nullptr, m_strArchive, "name"), 0);
    EXPECT_EQ(ZipWriter::AddFile(nullptr, m_strArchive), 0);
    EXPECT_EQ(ZipWriter::LastResult(), ZipBadArgs);
}

TEST_F(ZipWriterTest, RefusesAFileThatIsLocked) {
    const std::string strSource = m_Folder.Write("locked.dmp", "dump");
    {
        const FileHandle hOther = test::OpenByOther(strSource, 0);
        ASSERT_TRUE(hOther);
        ExpectNotAdded(strSource, ZipNoFile);
    }
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource), 1);
    EXPECT_EQ(ZipWriter::LastResult(), ZipOk);
    EXPECT_EQ(CloseAndWalk().Entries.size(), 1U);
}

TEST_F(ZipWriterTest, ReadsAFileThatSomebodyElseIsWriting) {
    const std::string strSource = m_Folder.Write("log.txt", "lines");
    const FileHandle hOther = test::OpenByOther(strSource, FILE_SHARE_READ | FILE_SHARE_WRITE);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource), 1);
    const FileHandle hJealous = test::OpenByOther(m_Folder.Write("log2.txt", "lines"), FILE_SHARE_READ);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, m_Folder.Path("log2.txt")), 1);
    EXPECT_EQ(CloseAndWalk().Entries.size(), 2U);
}

TEST_F(ZipWriterTest, RefusesDevices) {
    ASSERT_TRUE(FileHandle(CreateFileA("NUL", GENERIC_READ, 3, nullptr, OPEN_EXISTING, 0, nullptr)));
    ArchiveWriter& Writer = *m_pArchive->pWriter;
    EXPECT_EQ(Writer.Add("NUL", "NUL"), ZipNoFile);
    EXPECT_EQ(Writer.Add("\\\\.\\NUL", "NUL"), ZipNoFile);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, "NUL"), 0);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, "CON"), 0);
    EXPECT_TRUE(CloseAndWalk().Entries.empty());
}

TEST_F(ZipWriterTest, RefusesAPipe) {
    const std::string strPipe = "\\\\.\\pipe\\zip_test_" + std::to_string(GetCurrentProcessId());
    const FileHandle hServer(
        CreateNamedPipeA(strPipe.c_str(), PIPE_ACCESS_DUPLEX, PIPE_TYPE_BYTE, 4, 4096, 4096, 0, nullptr));
    ASSERT_TRUE(hServer);
    EXPECT_EQ(m_pArchive->pWriter->Add(strPipe, "pipe"), ZipNoFile);
    EXPECT_TRUE(CloseAndWalk().Entries.empty());
}

TEST_F(ZipWriterTest, RefusesItsOwnArchive) {
    ExpectNotAdded(m_strArchive, ZipNoFile);
}

TEST_F(ZipWriterTest, RefusesASourceOfFourGiBAndGoesOn) {
    const std::string strHuge = m_Folder.Write("huge.dmp", "");
    test::SetSize(strHuge, 0x100000000);
    ExpectNotAdded(strHuge, ZipNoFile);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, m_Folder.Write("small.txt", "small")), 1);
    EXPECT_EQ(CloseAndWalk().Entries.size(), 1U);
}

TEST_F(ZipWriterTest, RefusesNamesThatAreEmptyOrTooLong) {
    const std::string strSource = m_Folder.Write("a.txt", "text");
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource, ""), 0);
    EXPECT_EQ(ZipWriter::LastResult(), ZipBadArgs);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource, std::string(260, 'n')), 0);
    EXPECT_EQ(ZipWriter::LastResult(), ZipBadArgs);
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource, std::string(259, 'n')), 1);
    EXPECT_EQ(ZipWriter::LastResult(), ZipOk);
    const Walk Found = CloseAndWalk();
    ASSERT_EQ(Found.Entries.size(), 1U);
    EXPECT_EQ(Found.Entries[0].strName, std::string(259, 'n'));
}

TEST_F(ZipWriterTest, SharesTheArchiveWithNobodyWhileItIsWritten) {
    EXPECT_FALSE(FileHandle(CreateFileA(m_strArchive.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                        OPEN_EXISTING, 0, nullptr)));
    EXPECT_EQ(GetLastError(), DWORD{ERROR_SHARING_VIOLATION});
    EXPECT_EQ(Close(), unsigned{ZipOk});
    EXPECT_TRUE(test::OpenByOther(m_strArchive));
}

TEST_F(ZipWriterTest, ReplacesAnExistingFile) {
    const std::string strOther = m_Folder.Write("other.zip", std::string(5000, 'x'));
    ZipArchive* pOther = ZipWriter::CreateArchive(strOther);
    ASSERT_NE(pOther, nullptr);
    EXPECT_EQ(ZipWriter::Close(pOther), ZipOk);
    EXPECT_EQ(TempFolder::Read(strOther).size(), 22U);
}

TEST_F(ZipWriterTest, GivesNoHandleForAFileThatCannotBeCreated) {
    for (const std::string& strPath : {m_Folder.Path("missing\\a.zip"), m_Folder.Path(), std::string()}) {
        EXPECT_EQ(ZipWriter::LastResult(), unsigned{ZipOk});
        EXPECT_EQ(ZipWriter::CreateArchive(strPath), nullptr) << strPath;
        EXPECT_EQ(ZipWriter::LastResult(), ZipNoFile);
        ZipWriter::Close(ZipWriter::CreateArchive(m_Folder.Path("good.zip")));
    }
}

TEST_F(ZipWriterTest, KnowsAHandleOfAnotherKind) {
    const std::string strSource = m_Folder.Write("a.txt", "text");
    EXPECT_TRUE(ZipWriter::IsWriting(m_pArchive));
    EXPECT_FALSE(ZipWriter::IsWriting(nullptr));
    EXPECT_EQ(m_pArchive->uKind, 2U);
    m_pArchive->uKind = 1;
    EXPECT_FALSE(ZipWriter::IsWriting(m_pArchive));
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource, "a.txt"), 0);
    EXPECT_EQ(ZipWriter::LastResult(), 0x80000U);
    EXPECT_EQ(ZipWriter::Close(m_pArchive), 0x80000U);
    m_pArchive->uKind = 2;  // it was not freed
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, strSource, "a.txt"), 1);
    EXPECT_EQ(CloseAndWalk().Entries.size(), 1U);
}

TEST_F(ZipWriterTest, RefusesToCloseNothing) {
    EXPECT_EQ(ZipWriter::Close(nullptr), ZipBadArgs);
    EXPECT_EQ(ZipWriter::LastResult(), ZipBadArgs);
}

TEST_F(ZipWriterTest, RemembersTheResultOfEveryOperation) {
    MarkLastResult();
    EXPECT_EQ(ZipWriter::AddFile(m_pArchive, m_Folder.Write("a.txt", "text")), 1);
    EXPECT_EQ(ZipWriter::LastResult(), ZipOk);
    MarkLastResult();
    EXPECT_EQ(Close(), unsigned{ZipOk});
    EXPECT_EQ(ZipWriter::LastResult(), ZipOk);
    EXPECT_EQ(ZipWriter::CreateArchive(""), nullptr);
    EXPECT_EQ(ZipWriter::LastResult(), ZipNoFile);
}

TEST(ZipResults, KeepTheirNumbers) {
    EXPECT_EQ(ZipOk, 0U);
    EXPECT_EQ(ZipNoFile, 0x200U);
    EXPECT_EQ(ZipWriteError, 0x400U);
    EXPECT_EQ(ZipBadArgs, 0x10000U);
    EXPECT_EQ(ZipFailedBefore, 0x40000U);
    EXPECT_EQ(ZipEnded, 0x50000U);
    EXPECT_EQ(ZipSizeMismatch, 0x60000U);
    EXPECT_EQ(ZipWrongMode, 0x80000U);
    EXPECT_EQ(ZipSeekError, 0x2000000U);
    EXPECT_EQ(ZipNoChange, 0x4000000U);
}

}  // namespace
}  // namespace crashvane
