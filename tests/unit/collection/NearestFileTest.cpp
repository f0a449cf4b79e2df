#include "collection/NearestFile.h"

#include <gmock/gmock.h>

#include <limits>

#include "collection/HeapCount.h"
#include "collection/Installation.h"

namespace crashvane {
namespace {

using test::CrashTime;

TEST(NearestFile, ChoosesNothingWhenNothingWasOffered) {
    EXPECT_EQ(NearestFile(CrashTime).Path(), "");
}

TEST(NearestFile, ChoosesTheNearestWhateverTheOrder) {
    NearestFile Nearest(1000);
    Nearest.Offer("far", 1000 - 10);
    Nearest.Offer("near", 1000 + 5);
    Nearest.Offer("farther", 1000 + 11);
    EXPECT_EQ(Nearest.Path(), "near");
}

TEST(NearestFile, KeepsTheFirstFoundOnATie) {
    NearestFile Nearest(1000);
    Nearest.Offer("before", 995);
    Nearest.Offer("after", 1005);
    EXPECT_EQ(Nearest.Path(), "before");
    NearestFile Same(1000);
    Same.Offer("one", 1005);
    Same.Offer("two", 1005);
    EXPECT_EQ(Same.Path(), "one");
}

struct Distance {
    long long nWritten;
    bool bWithinReach;
};

class NearestFileReach : public testing::TestWithParam<Distance> {};

TEST_P(NearestFileReach, IsAnHourToEitherSide) {
    NearestFile Nearest(CrashTime);
    Nearest.Offer("file", CrashTime + GetParam().nWritten);
    EXPECT_EQ(Nearest.Path(), GetParam().bWithinReach ? "file" : "");
}

INSTANTIATE_TEST_SUITE_P(, NearestFileReach,
                         testing::Values(Distance{0, true}, Distance{3599, true}, Distance{3600, true},
                                         Distance{3601, false}, Distance{-3599, true}, Distance{-3600, true},
                                         Distance{-3601, false}, Distance{86400, false}, Distance{-CrashTime, false}));

TEST(NearestFile, IsNotConfusedByMomentsThatNoClockShows) {
    constexpr long long First = (std::numeric_limits<long long>::min)();
    constexpr long long Last = (std::numeric_limits<long long>::max)();
    for (const long long nMoment : {First, Last}) {
        NearestFile Nearest(nMoment);
        for (const long long nWritten : {First, -1LL, 0LL, 1LL, Last}) {
            Nearest.Offer(nWritten == nMoment ? "the same" : "another", nWritten);
        }
        EXPECT_EQ(Nearest.Path(), "the same");
    }
    NearestFile Nearest(Last);
    Nearest.Offer("at the limit", Last - 3600);
    EXPECT_EQ(Nearest.Path(), "at the limit");
}

TEST(NearestFile, KeepsOnlyTheBestOfManyCandidates) {
    constexpr long long Count = 100000;
    const std::string strPath = "C:\\Game\\logs\\client\\a rather long name of a log file of one afternoon.log";
    NearestFile Nearest(CrashTime);
    const test::HeapPeak Peak;
    for (long long nAway = Count; nAway > 0; --nAway) {
        Nearest.Offer(strPath, CrashTime + nAway % 3600);
    }
    EXPECT_EQ(Nearest.Path(), strPath);
    EXPECT_LT(Peak.Bytes(), 1000u);
}

FILETIME Ticks(unsigned long long uTicks) {
    return {static_cast<DWORD>(uTicks & 0xFFFFFFFFu), static_cast<DWORD>(uTicks >> 32)};
}

TEST(SecondsSince1970, CountsFromTheFirstSecondOf1970) {
    EXPECT_EQ(SecondsSince1970(Ticks(116444736000000000)), 0);
    EXPECT_EQ(SecondsSince1970(Ticks(132116036000000000)), 1567130000);
    EXPECT_EQ(SecondsSince1970(Ticks(116444736000000000 - 10000000)), -1);
}

TEST(SecondsSince1970, LeavesOutPartsOfASecond) {
    EXPECT_EQ(SecondsSince1970(Ticks(132116036000000000 + 9999999)), 1567130000);
    EXPECT_EQ(SecondsSince1970(Ticks(132116036000000000 + 10000000)), 1567130001);
}

TEST(SecondsSince1970, SaysZeroForATimeThatIsNotKept) {
    EXPECT_EQ(SecondsSince1970(Ticks(0)), 0);
}

class FindNearestFileTest : public testing::Test {
  protected:
    std::string WriteAt(const std::string& strName, long long nWritten) {
        const std::string strPath = m_Folder.Write(strName, "x");
        test::SetWritten(strPath, nWritten);
        return strPath;
    }
    std::string Find(const std::string& strPattern = "*.log") {
        return FindNearestFile(m_Folder.Path(), strPattern, CrashTime);
    }

    test::TempFolder m_Folder;
};

TEST_F(FindNearestFileTest, LooksInTheFolderAndOneLevelDown) {
    WriteAt("own.log", CrashTime + 100);
    WriteAt("a\\b\\deep.log", CrashTime);
    const std::string strBelow = WriteAt("a\\below.log", CrashTime - 50);
    EXPECT_EQ(Find(), strBelow);
}

TEST_F(FindNearestFileTest, TakesTheFolderBelowOnATieWithTheFolderItself) {
    WriteAt("a.log", CrashTime + 7);
    const std::string strBelow = WriteAt("z\\z.log", CrashTime - 7);
    EXPECT_EQ(Find(), strBelow);
}

TEST_F(FindNearestFileTest, TakesMatchingFilesAndNoFolders) {
    m_Folder.MakeFolder("folder.log");
    WriteAt("crash.txt", CrashTime);
    const std::string strLog = WriteAt("crash.LOG", CrashTime + 3000);
    EXPECT_EQ(Find(), strLog);
}

TEST_F(FindNearestFileTest, FindsNothingOutOfReachOrInAMissingFolder) {
    WriteAt("old.log", CrashTime - 3601);
    EXPECT_EQ(Find(), "");
    EXPECT_EQ(FindNearestFile(m_Folder.Path("missing"), "*.log", CrashTime), "");
    EXPECT_EQ(FindNearestFile(m_Folder.Path("old.log"), "*.log", CrashTime), "");
}

TEST_F(FindNearestFileTest, DoesNotTakeAnEmptyPathForTheCurrentFolder) {
    WriteAt("own.log", CrashTime);
    const test::CurrentFolderIs Current(m_Folder.Path());
    EXPECT_EQ(FindNearestFile("", "*.log", CrashTime), "");
}

TEST_F(FindNearestFileTest, CountsWholeSeconds) {
    const std::string strPath = m_Folder.Write("x.log", "x");
    test::SetWritten(strPath, CrashTime + 3600, 9999999);
    EXPECT_EQ(Find(), strPath);
    test::SetWritten(strPath, CrashTime - 3601, 9999999);
    EXPECT_EQ(Find(), "");
}

TEST_F(FindNearestFileTest, TakesAFileThatNobodyMayOpenSinceItsTimeIsKnown) {
    const std::string strPath = WriteAt("open.log", CrashTime);
    const test::Locked Lock(strPath);
    EXPECT_EQ(Find(), strPath);
}

TEST_F(FindNearestFileTest, NeedsNoMoreMemoryForMoreFiles) {
    for (int nFile = 0; nFile < 500; ++nFile) {
        WriteAt("many\\log of the client number " + std::to_string(nFile) + ".log", CrashTime + 3000 - nFile);
    }
    const test::HeapPeak Peak;
    EXPECT_THAT(Find(), testing::EndsWith("number 499.log"));
    EXPECT_LT(Peak.Bytes(), 4096u);
}

}  // namespace
}  // namespace crashvane
