// Archives of any files, read back by a reader of another make. Input: code page, what fails and when, limits; then
// the files: how they are named and what they are, a name, and the bytes.
#include <ctime>
#include <memory>
#include <vector>

#include "ArchiveReader.h"
#include "Fuzz.h"
#include "native/World.h"
#include "zip/ArchiveWriter.h"
#include "zip/Output.h"
#include "zip/ZipWriter.h"

namespace {

using native::Ticks;

constexpr const char* ArchivePath = "C:\\run\\Crash_1.zip";
constexpr std::int64_t TicksAt1970 = 116444736000000000;

struct Source {
    std::string strPath;
    std::string strName;  // in the archive, as it is handed over
    bool bOwnName = false;
    bool bMissing = false;
    native::File Facts;
};

struct Plan {
    bool bFaults = false;  // of disk and seeks: any add may fail
    bool bLimits = false;
    crashvane::ArchiveLimits Limits;
    std::vector<Source> Sources;
};

Source TakeSource(fuzz::Input& Given, std::size_t uIndex) {
    Source Taken;
    const unsigned uKind = Given.Byte();
    const unsigned uTrouble = Given.Byte();
    Taken.bOwnName = (uKind & 1) != 0;
    Taken.Facts.dwAttributes = Given.Byte() & 0x27;
    // Up to the year 30828, as far as the platform's calendar goes.
    Taken.Facts.uWritten = Given.Number(8) & INT64_MAX;
    Taken.Facts.uAccessed = (uKind & 2) != 0 ? Given.Number(8) & INT64_MAX : Taken.Facts.uWritten;
    Taken.Facts.uCreated = (uKind & 2) != 0 ? Given.Number(8) & INT64_MAX : Taken.Facts.uWritten;
    const std::string strLine = Given.Line();
    // Own names are those of files, which have no separators and no zeros.
    std::string strFile = std::to_string(uIndex) + "_";
    for (const char cByte : strLine) {
        strFile += cByte == '\\' || cByte == '/' || cByte == ':' || cByte == '\0' ? '-' : cByte;
    }
    Taken.strPath = "C:\\files\\" + strFile;
    Taken.strName = Taken.bOwnName ? strFile : strLine;
    const std::size_t uSize = Given.Number(2);
    const unsigned uTimes = (uKind & 4) != 0 ? Given.Byte() : 1;
    const std::string strBytes = Given.Bytes(uSize);
    std::uint32_t uNoise = 1;
    for (unsigned uTime = 0; uTime < uTimes; ++uTime) {
        Taken.Facts.strBytes += strBytes;
        // Repeated bytes shrink to nothing. With noise on them they fill the compressor's buffers.
        for (std::size_t uAt = 0; (uKind & 8) != 0 && uAt < strBytes.size(); ++uAt) {
            uNoise = uNoise * 1664525 + 1013904223;
            Taken.Facts.strBytes[Taken.Facts.strBytes.size() - 1 - uAt] ^= static_cast<char>(uNoise >> 24);
        }
    }
    Taken.bMissing = uTrouble == 1;
    Taken.Facts.bUnreadable = uTrouble == 2;
    Taken.Facts.uHidden = uTrouble == 3 ? 100 : uTrouble == 4 ? 0x100000000 : uTrouble == 5 ? 0xFFFFFF00 : 0;
    return Taken;
}

Plan TakePlan(fuzz::Input& Given) {
    Plan Taken;
    const unsigned uWhat = Given.Byte();
    native::TheWorld().uCodePage = (uWhat & 1) != 0 ? 936 : 1252;
    Taken.bFaults = (uWhat & 6) != 0;
    if ((uWhat & 2) != 0) {
        native::TheWorld().nDiskRoom = static_cast<std::int64_t>(Given.Number(2));
    }
    if ((uWhat & 4) != 0) {
        native::TheWorld().nSeeksThatWork = static_cast<int>(Given.Byte());
    }
    Taken.bLimits = (uWhat & 8) != 0;
    if (Taken.bLimits) {
        Taken.Limits.uBytes = 22 + Given.Number(2);
        Taken.Limits.uEntries = Given.Byte() % 8;
    }
    while (!Given.IsEmpty() && Taken.Sources.size() < 8) {
        Taken.Sources.push_back(TakeSource(Given, Taken.Sources.size()));
    }
    return Taken;
}

bool IsLead(unsigned char cByte) {
    return native::TheWorld().uCodePage == 936 && cByte > 0x80 && cByte < 0xFF;
}

std::string ExpectedName(const Source& Of) {
    std::string strName = fuzz::UpToZero(Of.strName);
    for (std::size_t uAt = 0; uAt < strName.size(); ++uAt) {
        if (IsLead(static_cast<unsigned char>(strName[uAt]))) {
            ++uAt;
        } else if (strName[uAt] == '\\') {
            strName[uAt] = '/';
        }
    }
    return strName;
}

unsigned ExpectedMethod(const std::string& strName) {
    std::string strLower;
    for (const char cByte : strName) {
        strLower += cByte >= 'A' && cByte <= 'Z' ? static_cast<char>(cByte + 32) : cByte;
    }
    const std::size_t uDot = strLower.rfind('.');
    const std::string strSuffix = uDot == std::string::npos ? "" : strLower.substr(uDot);
    for (const char* pszStored : {".z", ".zip", ".zoo", ".arc", ".lzh", ".arj", ".gz", ".tgz"}) {
        if (strSuffix == pszStored) {
            return 0;
        }
    }
    return 8;
}

std::uint32_t ExpectedSeconds(Ticks uTicks) {
    return static_cast<std::uint32_t>((static_cast<std::int64_t>(uTicks) - TicksAt1970) / 10000000);
}

void CheckTime(const fuzz::ArchiveEntry& Found, const native::File& Facts) {
    // Whole seconds, rounded down also before 1970.
    const std::time_t nSeconds = static_cast<std::time_t>(Facts.uWritten / 10000000) - TicksAt1970 / 10000000;
    std::tm Time = {};
    gmtime_r(&nSeconds, &Time);
    const int nYear = ((Time.tm_year + 1900 - 1980) % 128 + 128) % 128;
    fuzz::Require(Found.uDate == static_cast<unsigned>(nYear * 512 + (Time.tm_mon + 1) * 32 + Time.tm_mday),
                  "the DOS date");
    fuzz::Require(Found.uTime == static_cast<unsigned>(Time.tm_hour * 2048 + Time.tm_min * 32 + Time.tm_sec * 2 % 32),
                  "the DOS time");
    fuzz::Require(Found.uModified == ExpectedSeconds(Facts.uWritten) &&
                      Found.uAccessed == ExpectedSeconds(Facts.uAccessed) &&
                      Found.uCreated == ExpectedSeconds(Facts.uCreated),
                  "the three times");
}

std::uint32_t Word(const std::string& strBytes, std::size_t uAt, unsigned uBytes) {
    std::uint32_t uWord = 0;
    for (unsigned uByte = 0; uByte < uBytes; ++uByte) {
        uWord |= static_cast<std::uint32_t>(static_cast<unsigned char>(strBytes[uAt + uByte])) << 8 * uByte;
    }
    return uWord;
}

bool IsExecutable(const std::string& strBytes) {
    if (strBytes.size() <= 40 || Word(strBytes, 0, 2) != 0x54AD) {
        return false;
    }
    const std::size_t uAt = Word(strBytes, 36, 4);
    const std::uint32_t uMark = strBytes.size() > uAt + 52 ? Word(strBytes, uAt, 4) : 0;
    return uMark == 0x5A4D || uMark == 0x454C || uMark == 0x454E || uMark == 0x4550;
}

void CheckAttributes(const fuzz::ArchiveEntry& Found, const native::File& Facts) {
    std::uint32_t uExpected = 0x81000000 | (Facts.dwAttributes & 0x27);
    uExpected |= (Facts.dwAttributes & 1) != 0 ? 0 : 0x00800000;
    uExpected |= IsExecutable(Facts.strBytes) ? 0x00400000 : 0;
    // What a file is that shrinks meanwhile, nobody can say.
    const std::uint32_t uMask = Facts.uHidden == 0 ? 0xFFFFFFFF : 0xFFBFFFFF;
    fuzz::Require((Found.uExternal & uMask) == (uExpected & uMask), "the external attributes");
    std::size_t uText = 0;
    std::size_t uBinary = 0;
    for (const char cByte : Facts.strBytes.substr(0, 16384)) {
        ++(cByte >= 7 ? uText : uBinary);
    }
    fuzz::Require(Found.uInternal == (Found.uMethod == 8 && uBinary * 4 <= uText ? 1U : 0U), "text or binary");
}

void CheckEntry(const fuzz::ArchiveEntry& Found, const Source& Expected) {
    fuzz::RequireSame(Found.strName, ExpectedName(Expected), "the entry's name");
    fuzz::Require(Found.uMethod == ExpectedMethod(Found.strName), "the method goes by the name");
    fuzz::Require(Found.strBytes == Expected.Facts.strBytes, "the entry's bytes");
    CheckTime(Found, Expected.Facts);
    CheckAttributes(Found, Expected.Facts);
}

// What an add answers when disk and seeks work and no limit is near.
unsigned ExpectedResult(const Source& Of) {
    const std::string strName = ExpectedName(Of);
    const std::uint64_t uSize = Of.Facts.strBytes.size() + Of.Facts.uHidden;
    if (strName.empty() || strName.size() > 259) {
        return crashvane::ZipBadArgs;
    }
    if (uSize > UINT32_MAX) {
        return crashvane::ZipNoFile;
    }
    // A stored file of nearly 4 GiB does not fit beside its own headers.
    if (ExpectedMethod(strName) == 0 && uSize + strName.size() * 2 + 30 + 17 + 46 + 9 + 22 > UINT32_MAX - 65536) {
        return UINT32_MAX;
    }
    return Of.Facts.bUnreadable && uSize > 0 ? crashvane::ZipNoFile : crashvane::ZipOk;
}

bool IsKnownFailure(unsigned uResult) {
    for (const unsigned uKnown : {crashvane::ZipNoFile, crashvane::ZipWriteError, crashvane::ZipBadArgs,
                                  crashvane::ZipFailedBefore, crashvane::ZipSizeMismatch, crashvane::ZipSeekError}) {
        if (uResult == uKnown) {
            return true;
        }
    }
    return false;
}

void CheckArchive(const Plan& Of, const std::vector<const Source*>& Added, bool bLeftOvers) {
    fuzz::ArchiveReader Reader(native::FindFile(ArchivePath)->strBytes);
    const std::vector<fuzz::ArchiveEntry> Entries = Reader.Read();
    fuzz::Require(Entries.size() == Added.size(), "an entry for every file that was added");
    std::size_t uAt = 0;
    for (std::size_t uEntry = 0; uEntry < Entries.size(); ++uEntry) {
        CheckEntry(Entries[uEntry], *Added[uEntry]);
        fuzz::Require(bLeftOvers ? Entries[uEntry].uBegin >= uAt : Entries[uEntry].uBegin == uAt,
                      "an entry begins where the last one ended");
        uAt = Entries[uEntry].uEnd;
    }
    fuzz::Require(bLeftOvers || uAt == Reader.Directory(), "the directory begins where the last entry ended");
    if (Of.bLimits) {
        fuzz::Require(native::FindFile(ArchivePath)->strBytes.size() <= Of.Limits.uBytes, "the archive's largest size");
        fuzz::Require(Entries.size() <= Of.Limits.uEntries, "the archive's most entries");
    }
}

void CheckAdd(const Plan& Of, const Source& Each, unsigned uResult, bool& bLeftOvers) {
    const unsigned uExpected = ExpectedResult(Each);
    if (!Of.bFaults && !Of.bLimits && uExpected != UINT32_MAX) {
        fuzz::Require(uResult == uExpected, "an add's result");
    }
    fuzz::Require(uResult == crashvane::ZipOk || IsKnownFailure(uResult), "a known result");
    // A file that cannot be read leaves the beginning of its entry behind.
    bLeftOvers = bLeftOvers || (uResult != crashvane::ZipOk && (Of.bFaults || Each.Facts.bUnreadable));
}

void RunWriter(const Plan& Of) {
    std::vector<const Source*> Added;
    bool bLeftOvers = false;
    crashvane::ZipArchive* pArchive = crashvane::ZipWriter::CreateArchive(ArchivePath);
    fuzz::Require(pArchive != nullptr && crashvane::ZipWriter::IsWriting(pArchive), "the archive is made");
    for (const Source& Each : Of.Sources) {
        const unsigned uBefore = crashvane::ZipWriter::LastResult();
        const int nAdded = Each.bOwnName ? crashvane::ZipWriter::AddFile(pArchive, Each.strPath)
                                         : crashvane::ZipWriter::AddFile(pArchive, Each.strPath, Each.strName);
        const unsigned uResult = crashvane::ZipWriter::LastResult();
        if (Each.bMissing) {
            fuzz::Require(nAdded == 0 && uResult == uBefore, "a missing file changes nothing");
            continue;
        }
        fuzz::Require(nAdded == (uResult == crashvane::ZipOk ? 1 : 0), "added means the last result is good");
        CheckAdd(Of, Each, uResult, bLeftOvers);
        if (nAdded == 1) {
            Added.push_back(&Each);
        }
    }
    const unsigned uClosed = crashvane::ZipWriter::Close(pArchive);
    fuzz::Require(uClosed == crashvane::ZipOk || (Of.bFaults && uClosed == crashvane::ZipWriteError), "it is closed");
    if (uClosed == crashvane::ZipOk) {
        CheckArchive(Of, Added, bLeftOvers);
    }
}

void RunLimitedWriter(const Plan& Of) {
    std::vector<const Source*> Added;
    bool bLeftOvers = false;
    auto pOutput = std::make_unique<crashvane::FileOutput>();
    fuzz::Require(pOutput->Create(ArchivePath), "the archive is made");
    crashvane::ArchiveWriter Writer(std::move(pOutput), Of.Limits);
    for (const Source& Each : Of.Sources) {
        if (!Each.bMissing) {
            const unsigned uResult = Writer.Add(Each.strPath, Each.strName);
            CheckAdd(Of, Each, uResult, bLeftOvers);
            if (uResult == crashvane::ZipOk) {
                Added.push_back(&Each);
            }
        }
    }
    const unsigned uClosed = Writer.Finish();
    fuzz::Require(uClosed == crashvane::ZipOk || Of.bFaults, "it is closed");
    fuzz::Require(Writer.Finish() == crashvane::ZipOk, "closing twice does nothing");
    if (uClosed == crashvane::ZipOk) {
        CheckArchive(Of, Added, bLeftOvers);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* pBytes, std::size_t uSize) {
    native::ResetWorld();
    fuzz::Input Given(pBytes, uSize);
    const Plan Of = TakePlan(Given);
    for (const Source& Each : Of.Sources) {
        if (!Each.bMissing) {
            native::File& Made = native::MakeFile(Each.strPath, "");
            Made = Each.Facts;
            Made.strPath = Each.strPath;
        }
    }
    (Of.bLimits ? RunLimitedWriter : RunWriter)(Of);
    return 0;
}
