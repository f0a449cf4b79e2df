// Times of an entry: of a file time, without asking any clock or file.
#pragma once

#include <windows.h>

#include <cstdint>

namespace crashvane {

// Seconds since 1970-01-01 00:00 UTC, truncated toward zero and cut to 32 bits.
std::uint32_t UnixTime(const FILETIME& Time);

// MS-DOS date in the high half, time in the low half, of the file time as it is (UTC, not local). The seconds field
// is twice the seconds cut to five bits, not half of them: readers of our archives are used to it.
std::uint32_t DosTimeAndDate(const FILETIME& Time);

}  // namespace crashvane
