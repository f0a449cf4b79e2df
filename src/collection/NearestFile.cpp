#include "collection/NearestFile.h"

#include "util/Files.h"

namespace crashvane {

namespace {

constexpr long long TicksASecond = 10'000'000;
constexpr long long SecondsFrom1601To1970 = 11'644'473'600;

// Unsigned, so that no pair of times overflows: a report may claim any 64-bit moment.
unsigned long long DistanceInTime(long long nLeft, long long nRight) {
    const auto uLeft = static_cast<unsigned long long>(nLeft);
    const auto uRight = static_cast<unsigned long long>(nRight);
    return nLeft < nRight ? uRight - uLeft : uLeft - uRight;
}

}  // namespace

void NearestFile::Offer(const std::string& strPath, long long nWritten) {
    const unsigned long long uDistance = DistanceInTime(nWritten, m_nMoment);

    if (uDistance < m_uNearest) {
        m_uNearest = uDistance;
        m_strPath = strPath;
    }
}

long long SecondsSince1970(const FILETIME& Time) {
    ULARGE_INTEGER Ticks = {};

    Ticks.LowPart = Time.dwLowDateTime;
    Ticks.HighPart = Time.dwHighDateTime;
    if (Ticks.QuadPart == 0) {
        return 0;
    }
    return static_cast<long long>(Ticks.QuadPart / TicksASecond) - SecondsFrom1601To1970;
}

std::string FindNearestFile(const std::string& strFolder, const std::string& strPattern, long long nMoment) {
    NearestFile Nearest(nMoment);
    const bool bSearched =
        !strFolder.empty() &&
        VisitFiles(strFolder, strPattern, false, [&](const std::string& strPath, const WIN32_FIND_DATAA& Data) {
            // A path too long to be joined is empty, and nobody could open it.
            if (!strPath.empty()) {
                Nearest.Offer(strPath, SecondsSince1970(Data.ftLastWriteTime));
            }
        });

    return bSearched ? Nearest.Path() : std::string();
}

}  // namespace crashvane
