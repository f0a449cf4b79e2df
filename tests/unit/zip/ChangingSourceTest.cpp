// Sources that change or fail while they are read.
#include <gmock/gmock.h>

#include "support/TempFolder.h"
#include "zip/ArchiveWalk.h"
#include "zip/ArchiveWriter.h"
#include "zip/FakeOutput.h"
#include "zip/SourceFiles.h"

namespace crashvane {
namespace {

using test::FakeDisk;
using test::FakeOutput;
using test::Noise;
using test::TempFolder;
using test::Walk;
using test::WalkArchive;

class ChangingSource : public testing::TestWithParam<const char*> {
  protected:
    // Something happens to the source before the archive's write of this number: 1 is the header, 2 the first data.
    template <typename Function>
    void Before(int nWrite, Function Happens) {
        m_Disk.BeforeWrite = [=](int nNow) {
            if (nNow == nWrite) {
                Happens();
            }
        };
    }
    // Adds another file, finishes, and expects both contents (the first one only if it was added).
    void ExpectTrueArchive(ZipResult Result, const std::string& strContent) {
        EXPECT_EQ(m_Writer.Add(m_Folder.Write("next.txt", "next"), "next"), ZipOk);
        EXPECT_EQ(m_Writer.Finish(), ZipOk);
        const Walk Found = WalkArchive(m_Disk.strBytes);
        EXPECT_EQ(Found.strComplaint, "");
        ASSERT_EQ(Found.Entries.size(), Result == ZipOk ? 2U : 1U);
        EXPECT_EQ(Found.Entries.back().strContent, "next");
        if (Result == ZipOk) {
            EXPECT_TRUE(Found.Entries[0].strContent == strContent);
            EXPECT_EQ(Found.uGaps, 0U);
        }
    }

    const std::string m_strNoise = Noise(100000);
    TempFolder m_Folder;
    const std::string m_strSource = m_Folder.Write("source.bin", m_strNoise);
    FakeDisk m_Disk;
    ArchiveWriter m_Writer{std::make_unique<FakeOutput>(m_Disk)};
};

TEST_P(ChangingSource, ThatShrinksBecomesAnEntryOfWhatWasLeft) {
    Before(3, [this] { test::SetSize(m_strSource, 70000); });
    const ZipResult Result = m_Writer.Add(m_strSource, GetParam());
    EXPECT_EQ(Result, ZipOk);
    ExpectTrueArchive(Result, m_strNoise.substr(0, 70000));
}

TEST_P(ChangingSource, ThatBecomesEmptyBecomesAnEmptyEntry) {
    Before(1, [this] { test::SetSize(m_strSource, 0); });
    const ZipResult Result = m_Writer.Add(m_strSource, GetParam());
    EXPECT_EQ(Result, ZipOk);
    ExpectTrueArchive(Result, "");
}

TEST_P(ChangingSource, ThatGrowsEndsWhereItEndedAtFirst) {
    Before(3, [this] { test::SetSize(m_strSource, 1000000); });
    const ZipResult Result = m_Writer.Add(m_strSource, GetParam());
    EXPECT_EQ(Result, ZipOk);
    ExpectTrueArchive(Result, m_strNoise);
}

// Closes this process's own handle of the file, as a network drive does that goes away.
void BreakHandleOf(const std::string& strPath) {
    BY_HANDLE_FILE_INFORMATION Wanted = {};
    BY_HANDLE_FILE_INFORMATION Found = {};
    GetFileInformationByHandle(test::OpenByOther(strPath).Get(), &Wanted);
    for (std::uintptr_t uHandle = 4; uHandle < 4096; uHandle += 4) {
        const HANDLE hEach = reinterpret_cast<HANDLE>(uHandle);
        if (GetFileType(hEach) == FILE_TYPE_DISK && GetFileInformationByHandle(hEach, &Found) &&
            Found.nFileIndexLow == Wanted.nFileIndexLow && Found.nFileIndexHigh == Wanted.nFileIndexHigh &&
            Found.dwVolumeSerialNumber == Wanted.dwVolumeSerialNumber) {
            CloseHandle(hEach);
        }
    }
}

TEST_P(ChangingSource, ThatCannotBeReadToItsEndIsLeftOutAndTheNextOneAdded) {
    Before(3, [this] { BreakHandleOf(m_strSource); });
    const ZipResult Result = m_Writer.Add(m_strSource, GetParam());
    EXPECT_EQ(Result, ZipNoFile);
    ExpectTrueArchive(Result, "");
}

INSTANTIATE_TEST_SUITE_P(Methods, ChangingSource, testing::Values("deflated.bin", "stored.zip"),
                         [](const auto& Info) { return std::string(Info.param).substr(0, 6); });

}  // namespace
}  // namespace crashvane
