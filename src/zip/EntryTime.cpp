#include "zip/EntryTime.h"

namespace crashvane {

std::uint32_t UnixTime(const FILETIME& Time) {
    constexpr std::int64_t TicksAt1970 = 116444736000000000;
    constexpr std::int64_t TicksPerSecond = 10000000;
    const std::uint64_t uTicks = (std::uint64_t{Time.dwHighDateTime} << 32) | Time.dwLowDateTime;
    return static_cast<std::uint32_t>((static_cast<std::int64_t>(uTicks) - TicksAt1970) / TicksPerSecond);
}

std::uint32_t DosTimeAndDate(const FILETIME& Time) {
    SYSTEMTIME Calendar = {};  // stays zero for a time beyond the calendar
    FileTimeToSystemTime(&Time, &Calendar);
    const std::uint32_t uYear = (std::uint32_t{Calendar.wYear} - 1980U) % 128U;
    const std::uint32_t uDate = uYear * 512U + Calendar.wMonth * 32U + Calendar.wDay;
    const std::uint32_t uTime = Calendar.wHour * 2048U + Calendar.wMinute * 32U + (2U * Calendar.wSecond) % 32U;
    return (uDate << 16) | uTime;
}

}  // namespace crashvane
