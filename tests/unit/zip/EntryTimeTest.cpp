#include "zip/EntryTime.h"

#include <gmock/gmock.h>

namespace crashvane {
namespace {

// Of ticks of 100 nanoseconds since 1601.
FILETIME Ticks(std::uint64_t uTicks) {
    return {static_cast<DWORD>(uTicks), static_cast<DWORD>(uTicks >> 32)};
}

constexpr std::uint64_t At1970 = 116444736000000000;
constexpr std::uint64_t LeapDay = 133536836960000000;  // 2024-02-29 12:34:56

TEST(UnixTime, CountsSecondsSince1970) {
    EXPECT_EQ(UnixTime(Ticks(At1970)), 0U);
    EXPECT_EQ(UnixTime(Ticks(LeapDay)), 1709210096U);
}

TEST(UnixTime, DropsPartsOfASecond) {
    EXPECT_EQ(UnixTime(Ticks(At1970 + 9999999)), 0U);
    EXPECT_EQ(UnixTime(Ticks(At1970 + 10000000)), 1U);
}

TEST(UnixTime, TruncatesTowardZeroBefore1970) {
    EXPECT_EQ(UnixTime(Ticks(At1970 - 9999999)), 0U);
    EXPECT_EQ(UnixTime(Ticks(At1970 - 10000001)), 0xFFFFFFFFU);
    EXPECT_EQ(UnixTime(Ticks(0)), 0x49EF6F00U);  // -11644473600 in its low 32 bits
}

TEST(UnixTime, IsCutTo32Bits) {
    EXPECT_EQ(UnixTime(Ticks(At1970 + 42949672970000000)), 1U);  // 2^32 + 1 seconds, in the year 2106
}

TEST(DosTimeAndDate, DoublesTheSecondsAndCutsThemToFiveBits) {
    EXPECT_EQ(DosTimeAndDate(Ticks(LeapDay)) & 0xFFFF, 12U * 2048 + 34 * 32 + 16);  // 112 cut to 16
    const std::uint64_t u1250 = LeapDay - 56 * 10000000ULL;                         // second 0
    EXPECT_EQ(DosTimeAndDate(Ticks(u1250)) & 31, 0U);
    EXPECT_EQ(DosTimeAndDate(Ticks(u1250 + 1 * 10000000ULL)) & 31, 2U);
    EXPECT_EQ(DosTimeAndDate(Ticks(u1250 + 15 * 10000000ULL)) & 31, 30U);
    EXPECT_EQ(DosTimeAndDate(Ticks(u1250 + 16 * 10000000ULL)) & 31, 0U);
    EXPECT_EQ(DosTimeAndDate(Ticks(u1250 + 59 * 10000000ULL)) & 31, 22U);
}

TEST(DosTimeAndDate, TakesTheTimeAsItIsWithoutATimeZone) {
    EXPECT_EQ((DosTimeAndDate(Ticks(LeapDay)) >> 11) & 31, 12U);
}

TEST(DosTimeAndDate, CountsYearsFrom1980) {
    EXPECT_EQ(DosTimeAndDate(Ticks(LeapDay)) >> 16, 44U * 512 + 2 * 32 + 29);
    EXPECT_EQ(DosTimeAndDate(Ticks(119600064000000000)) >> 16, 0U * 512 + 1 * 32 + 1);  // 1980-01-01
}

TEST(DosTimeAndDate, WrapsYearsAt128) {
    EXPECT_EQ(DosTimeAndDate(Ticks(159992928000000000)) >> 16, 0U * 512 + 1 * 32 + 1);  // 2108-01-01
    EXPECT_EQ(DosTimeAndDate(Ticks(At1970)) >> 16, 118U * 512 + 1 * 32 + 1);            // -10
}

TEST(DosTimeAndDate, SurvivesATimeBeyondTheCalendar) {
    EXPECT_EQ(DosTimeAndDate(Ticks(0xFFFFFFFFFFFFFFFF)) & 0xFFFF, 0U);
}

}  // namespace
}  // namespace crashvane
