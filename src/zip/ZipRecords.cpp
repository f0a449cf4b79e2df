#include "zip/ZipRecords.h"

#include <cstring>

namespace crashvane {
namespace {

// One field: its width in bytes and either a member of the record or a value that is always the same.
template <typename Record>
struct Field {
    unsigned uWidth;
    std::uint32_t uAlways;
    std::uint32_t Record::*pMember;
};

using Entry = EntryRecord;

template <typename Record = Entry>
constexpr Field<Record> Always(unsigned uWidth, std::size_t uValue) {
    return {uWidth, static_cast<std::uint32_t>(uValue), nullptr};
}

template <typename Record>
constexpr Field<Record> Member(unsigned uWidth, std::uint32_t Record::*pMember) {
    return {uWidth, 0, pMember};
}

constexpr std::uint32_t VersionMadeBy = 0x0B17;
constexpr std::uint32_t VersionNeeded = 20;
constexpr std::uint32_t TimeStampTag = 0x5455;  // "UT"
constexpr std::uint32_t AllThreeTimes = 7;

// One field a line, as they follow each other in the file.
// clang-format off
constexpr Field<Entry> LocalHeaderFields[] = {
    Always(4, 0x04034B50),  // signature: "PK", 3, 4
    Always(2, VersionNeeded),
    Member(2, &Entry::uFlags),
    Member(2, &Entry::uMethod),
    Member(4, &Entry::uTimeAndDate),
    Member(4, &Entry::uCrc),
    Member(4, &Entry::uCompressedSize),
    Member(4, &Entry::uUncompressedSize),
    Member(2, &Entry::uNameLength),
    Always(2, LocalExtraSize),
};

constexpr Field<Entry> LocalExtraFields[] = {
    Always(2, TimeStampTag),
    Always(2, LocalExtraSize - 4),  // bytes that follow
    Always(1, AllThreeTimes),
    Member(4, &Entry::uModified),
    Member(4, &Entry::uAccessed),
    Member(4, &Entry::uCreated),
};

constexpr Field<Entry> CentralHeaderFields[] = {
    Always(4, 0x02014B50),  // signature: "PK", 1, 2
    Always(2, VersionMadeBy),
    Always(2, VersionNeeded),
    Member(2, &Entry::uFlags),
    Member(2, &Entry::uMethod),
    Member(4, &Entry::uTimeAndDate),
    Member(4, &Entry::uCrc),
    Member(4, &Entry::uCompressedSize),
    Member(4, &Entry::uUncompressedSize),
    Member(2, &Entry::uNameLength),
    Always(2, CentralExtraSize),
    Always(2, 0),           // length of the comment
    Always(2, 0),           // disk on which the entry starts
    Member(2, &Entry::uInternalAttributes),
    Member(4, &Entry::uExternalAttributes),
    Member(4, &Entry::uHeaderOffset),
};

constexpr Field<Entry> CentralExtraFields[] = {
    Always(2, TimeStampTag),
    Always(2, CentralExtraSize - 4),
    Always(1, AllThreeTimes),  // names the times of the local header, although one alone follows here
    Member(4, &Entry::uModified),
};

constexpr Field<Entry> DataDescriptorFields[] = {
    Always(4, 0x08074B50),  // signature: "PK", 7, 8
    Member(4, &Entry::uCrc),
    Member(4, &Entry::uCompressedSize),
    Member(4, &Entry::uUncompressedSize),
};

constexpr Field<DirectoryEnd> EndRecordFields[] = {
    Always<DirectoryEnd>(4, 0x06054B50),  // signature: "PK", 5, 6
    Always<DirectoryEnd>(2, 0),           // number of this disk
    Always<DirectoryEnd>(2, 0),           // disk on which the directory starts
    Member(2, &DirectoryEnd::uEntries),   // on this disk
    Member(2, &DirectoryEnd::uEntries),   // in total
    Member(4, &DirectoryEnd::uSize),
    Member(4, &DirectoryEnd::uOffset),
    Always<DirectoryEnd>(2, 0),           // length of the comment
};
// clang-format on

template <typename Record, std::size_t Count>
constexpr std::size_t SizeOf(const Field<Record> (&Fields)[Count]) {
    std::size_t uSize = 0;
    for (const Field<Record>& Each : Fields) {
        uSize += Each.uWidth;
    }
    return uSize;
}

static_assert(SizeOf(LocalHeaderFields) == LocalHeaderSize);
static_assert(SizeOf(LocalExtraFields) == LocalExtraSize);
static_assert(SizeOf(CentralHeaderFields) == CentralHeaderSize);
static_assert(SizeOf(CentralExtraFields) == CentralExtraSize);
static_assert(SizeOf(DataDescriptorFields) == DataDescriptorSize);
static_assert(SizeOf(EndRecordFields) == EndRecordSize);

template <typename Record, std::size_t Count>
void Append(RecordBytes& Result, const Field<Record> (&Fields)[Count], const Record& Values) {
    for (const Field<Record>& Each : Fields) {
        const std::uint32_t uValue = Each.pMember != nullptr ? Values.*Each.pMember : Each.uAlways;
        for (unsigned uByte = 0; uByte < Each.uWidth; ++uByte) {
            Result.Bytes[Result.uSize++] = static_cast<unsigned char>(uValue >> (8 * uByte));
        }
    }
}

void AppendName(RecordBytes& Result, const EntryRecord& Values) {
    std::memcpy(Result.Bytes.data() + Result.uSize, Values.strName.data(), Values.uNameLength);
    Result.uSize += Values.uNameLength;
}

}  // namespace

RecordBytes LocalHeader(const EntryRecord& Values) {
    RecordBytes Result;
    Append(Result, LocalHeaderFields, Values);
    AppendName(Result, Values);
    Append(Result, LocalExtraFields, Values);
    return Result;
}

RecordBytes CentralHeader(const EntryRecord& Values) {
    RecordBytes Result;
    Append(Result, CentralHeaderFields, Values);
    AppendName(Result, Values);
    Append(Result, CentralExtraFields, Values);
    return Result;
}

RecordBytes DataDescriptor(const EntryRecord& Values) {
    RecordBytes Result;
    Append(Result, DataDescriptorFields, Values);
    return Result;
}

RecordBytes EndRecord(const DirectoryEnd& Values) {
    RecordBytes Result;
    Append(Result, EndRecordFields, Values);
    return Result;
}

}  // namespace crashvane
