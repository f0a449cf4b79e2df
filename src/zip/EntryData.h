// Streams a source's bytes into the archive, stored or deflated, through two fixed buffers.
//
// The compressor is set up at the first deflated entry and reused for every further one.
#pragma once

#include <zlib.h>

#include <cstddef>
#include <cstdint>

#include "zip/ArchiveStream.h"
#include "zip/SourceFile.h"
#include "zip/TextJudgement.h"
#include "zip/ZipRecords.h"
#include "zip/ZipResult.h"

namespace crashvane {

class EntryData {
  public:
    // pfnAllocate and pfnFree: the compressor's memory; null for the library's own.
    explicit EntryData(ArchiveStream& Archive, alloc_func pfnAllocate = nullptr, free_func pfnFree = nullptr);
    ~EntryData();
    EntryData(const EntryData&) = delete;
    EntryData& operator=(const EntryData&) = delete;

    // Appends the source's first Entry.uUncompressedSize bytes, or what there is of them, by the entry's method; sets
    // CRC, both sizes and the internal attributes to what was really read and written. At most uRoom bytes are
    // appended. ZipNoFile: reading failed, or the data wants more room; ZipWriteError; ZipSizeMismatch.
    ZipResult Write(SourceFile& Source, EntryRecord& Entry, std::uint64_t uRoom);

    // The last Write failed since the data wanted more room.
    [[nodiscard]] bool WantedMoreRoom() const { return m_bWantedMoreRoom; }

  private:
    static constexpr std::size_t BufferSize = 16384;

    ZipResult Store(SourceFile& Source);
    ZipResult Deflate(SourceFile& Source);
    bool StartEngine();
    ZipResult Compress(std::uint32_t uSize, int nFlush);
    ZipResult ReadBlock(SourceFile& Source, std::uint32_t& uRead);
    ZipResult Put(const unsigned char* pData, std::size_t uSize, ZipResult Failure);

    ArchiveStream& m_Archive;
    z_stream m_Engine = {};
    bool m_bEngineReady = false;
    // The entry being written.
    std::uint32_t m_uRemaining = 0;  // to be read
    std::uint32_t m_uRead = 0;
    std::uint32_t m_uWritten = 0;
    std::uint32_t m_uCrc = 0;
    std::uint64_t m_uRoom = 0;
    bool m_bWantedMoreRoom = false;
    TextJudgement m_Judgement;
    unsigned char m_Input[BufferSize] = {};
    unsigned char m_Output[BufferSize] = {};
};

}  // namespace crashvane
