// Reads a zip archive that somebody else wrote: every byte has to be accounted for. Shares nothing with the writer.
#pragma once

#include <zlib.h>

#include <cstdint>
#include <string>
#include <vector>

#include "Fuzz.h"

namespace fuzz {

struct ArchiveEntry {
    std::string strName;
    std::string strBytes;  // uncompressed
    unsigned uMethod = 0;
    unsigned uTime = 0;
    unsigned uDate = 0;
    unsigned uInternal = 0;
    std::uint32_t uExternal = 0;
    std::uint32_t uModified = 0;
    std::uint32_t uAccessed = 0;
    std::uint32_t uCreated = 0;
    std::size_t uBegin = 0;  // of the local header
    std::size_t uEnd = 0;    // behind the data
};

class ArchiveReader {
  public:
    explicit ArchiveReader(std::string strArchive) : m_strArchive(std::move(strArchive)) {}

    // Requires the archive to be valid in every field; whether something lies between entries is the caller's question.
    std::vector<ArchiveEntry> Read() {
        constexpr std::size_t EndSize = 22;
        Require(m_strArchive.size() >= EndSize, "the archive has an end record");
        const std::size_t uEnd = m_strArchive.size() - EndSize;
        Require(Number(uEnd, 4) == 0x06054B50, "the end record is the last");
        Require(Number(uEnd + 4, 4) == 0 && Number(uEnd + 20, 2) == 0, "one disk, no comment");
        Require(Number(uEnd + 8, 2) == Number(uEnd + 10, 2), "both counts of entries");
        std::vector<ArchiveEntry> Entries(Number(uEnd + 8, 2));
        m_uAt = Number(uEnd + 16, 4);
        Require(m_uAt + Number(uEnd + 12, 4) == uEnd, "the directory lies before the end record");
        m_uDirectory = m_uAt;
        for (ArchiveEntry& Each : Entries) {
            ReadEntry(Each, uEnd);
        }
        Require(m_uAt == uEnd, "the directory has nothing behind its entries");
        return Entries;
    }

    // Where the directory begins; known after Read.
    [[nodiscard]] std::size_t Directory() const { return m_uDirectory; }

  private:
    [[nodiscard]] std::uint32_t Number(std::size_t uAt, unsigned uBytes) const {
        Require(uAt + uBytes <= m_strArchive.size(), "a field lies inside the archive");
        std::uint32_t uNumber = 0;
        for (unsigned uByte = uBytes; uByte > 0; --uByte) {
            uNumber = uNumber << 8 | static_cast<unsigned char>(m_strArchive[uAt + uByte - 1]);
        }
        return uNumber;
    }

    void ReadEntry(ArchiveEntry& Entry, std::size_t uEnd) {
        const std::size_t uHead = m_uAt;
        Require(Number(uHead, 4) == 0x02014B50, "a central header");
        Require(Number(uHead + 4, 2) == 0x0B17 && Number(uHead + 6, 2) == 20, "both versions");
        Require(Number(uHead + 8, 2) == 0, "no flags");
        Entry.uMethod = Number(uHead + 10, 2);
        Entry.uTime = Number(uHead + 12, 2);
        Entry.uDate = Number(uHead + 14, 2);
        const std::size_t uName = Number(uHead + 28, 2);
        Require(Number(uHead + 30, 2) == 9 && Number(uHead + 32, 4) == 0, "a small extra field, no comment");
        Entry.uInternal = Number(uHead + 36, 2);
        Entry.uExternal = Number(uHead + 38, 4);
        Entry.uBegin = Number(uHead + 42, 4);
        Entry.strName = m_strArchive.substr(uHead + 46, uName);
        const std::size_t uExtra = uHead + 46 + uName;
        Require(Number(uExtra, 4) == 0x00055455 && Number(uExtra + 4, 1) == 7, "the central time stamp");
        Entry.uModified = Number(uExtra + 5, 4);
        m_uAt = uExtra + 9;
        Require(m_uAt <= uEnd, "a central header ends before the end record");
        ReadLocal(Entry, uHead, uName);
    }

    void ReadLocal(ArchiveEntry& Entry, std::size_t uHead, std::size_t uName) {
        const std::size_t uLocal = Entry.uBegin;
        Require(Number(uLocal, 4) == 0x04034B50, "a local header");
        Require(m_strArchive.compare(uLocal + 4, 24, m_strArchive, uHead + 6, 24) == 0,
                "the local header says what the central one says");
        Require(Number(uLocal + 28, 2) == 17, "a larger extra field");
        Require(m_strArchive.compare(uLocal + 30, uName, Entry.strName) == 0, "the same name");
        const std::size_t uExtra = uLocal + 30 + uName;
        Require(Number(uExtra, 4) == 0x000D5455 && Number(uExtra + 4, 1) == 7, "the local time stamps");
        Require(Number(uExtra + 5, 4) == Entry.uModified, "the same time");
        Entry.uAccessed = Number(uExtra + 9, 4);
        Entry.uCreated = Number(uExtra + 13, 4);
        const std::uint32_t uCompressed = Number(uHead + 20, 4);
        Entry.uEnd = uExtra + 17 + uCompressed;
        Require(Entry.uEnd <= m_uDirectory, "the data ends before the directory");
        Unpack(Entry, m_strArchive.substr(uExtra + 17, uCompressed), Number(uHead + 24, 4));
        Require(Crc(Entry.strBytes) == Number(uHead + 16, 4), "the check sum");
    }

    static void Unpack(ArchiveEntry& Entry, std::string strPacked, std::uint32_t uSize) {
        if (Entry.uMethod == 0) {
            Entry.strBytes = strPacked;
            Require(strPacked.size() == uSize, "a stored entry's sizes are one");
            return;
        }
        Require(Entry.uMethod == 8, "stored or deflated");
        // One byte more than it should be: more than that must not come out.
        Entry.strBytes.assign(std::size_t{uSize} + 1, '\0');
        z_stream Stream = {};
        Stream.next_in = reinterpret_cast<Bytef*>(strPacked.data());
        Stream.avail_in = static_cast<uInt>(strPacked.size());
        Stream.next_out = reinterpret_cast<Bytef*>(Entry.strBytes.data());
        Stream.avail_out = uSize + 1;
        inflateInit2(&Stream, -15);
        const int nResult = inflate(&Stream, Z_FINISH);
        const bool bExact = nResult == Z_STREAM_END && Stream.avail_in == 0 && Stream.avail_out == 1;
        inflateEnd(&Stream);
        Require(bExact, "the deflated data ends where it should");
        Entry.strBytes.resize(uSize);
    }

    // Bit by bit: polynomial 0xEDB88320, reflected.
    static std::uint32_t Crc(const std::string& strBytes) {
        std::uint32_t uCrc = 0xFFFFFFFF;
        for (const char cByte : strBytes) {
            uCrc ^= static_cast<unsigned char>(cByte);
            for (int nBit = 0; nBit < 8; ++nBit) {
                uCrc = (uCrc & 1) != 0 ? uCrc >> 1 ^ 0xEDB88320 : uCrc >> 1;
            }
        }
        return ~uCrc;
    }

    std::string m_strArchive;
    std::size_t m_uAt = 0;
    std::size_t m_uDirectory = 0;
};

}  // namespace fuzz
