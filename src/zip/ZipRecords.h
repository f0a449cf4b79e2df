// The records of a zip archive as they lie in the file: their fields, in order, stand in ZipRecords.cpp as tables.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace crashvane {

inline constexpr std::size_t LongestEntryName = 259;

// Bytes of the fixed parts; name and extra field follow.
inline constexpr std::size_t LocalHeaderSize = 30;
inline constexpr std::size_t LocalExtraSize = 17;
inline constexpr std::size_t CentralHeaderSize = 46;
inline constexpr std::size_t CentralExtraSize = 9;
inline constexpr std::size_t DataDescriptorSize = 16;
inline constexpr std::size_t EndRecordSize = 22;

enum ZipMethod : std::uint32_t {
    ZipStored = 0,
    ZipDeflated = 8,
};

// General-purpose flag: sizes and CRC are not in the local header (yet).
inline constexpr std::uint32_t SizesFollow = 8;

// One entry of the archive. Every number has 32 bits here; its width in the file is the layout's business.
struct EntryRecord {
    std::string strName;  // at most LongestEntryName bytes
    std::uint32_t uNameLength = 0;
    std::uint32_t uFlags = SizesFollow;
    std::uint32_t uMethod = ZipDeflated;
    std::uint32_t uTimeAndDate = 0;  // MS-DOS, the time in the low half
    std::uint32_t uCrc = 0;
    std::uint32_t uCompressedSize = 0;
    std::uint32_t uUncompressedSize = 0;
    std::uint32_t uModified = 0;  // these three: seconds since 1970, UTC
    std::uint32_t uAccessed = 0;
    std::uint32_t uCreated = 0;
    std::uint32_t uInternalAttributes = 0;  // 1: text
    std::uint32_t uExternalAttributes = 0;
    std::uint32_t uHeaderOffset = 0;  // of the local header, from the start of the file
};

// The end of the directory.
struct DirectoryEnd {
    std::uint32_t uEntries = 0;
    std::uint32_t uSize = 0;    // bytes of all central headers
    std::uint32_t uOffset = 0;  // of the first one
};

// The bytes of one record.
struct RecordBytes {
    std::array<unsigned char, CentralHeaderSize + LongestEntryName + CentralExtraSize> Bytes;
    std::size_t uSize = 0;
};

RecordBytes LocalHeader(const EntryRecord& Entry);     // with name and extra field
RecordBytes CentralHeader(const EntryRecord& Entry);   // with name and extra field
RecordBytes DataDescriptor(const EntryRecord& Entry);  // only behind an entry of an output that cannot seek
RecordBytes EndRecord(const DirectoryEnd& End);

}  // namespace crashvane
