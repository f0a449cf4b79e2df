#include "zip/EntryData.h"

#include <algorithm>

namespace crashvane {

EntryData::EntryData(ArchiveStream& Archive, alloc_func pfnAllocate, free_func pfnFree) : m_Archive(Archive) {
    m_Engine.zalloc = pfnAllocate;
    m_Engine.zfree = pfnFree;
}

EntryData::~EntryData() {
    if (m_bEngineReady) {
        deflateEnd(&m_Engine);
    }
}

ZipResult EntryData::Write(SourceFile& Source, EntryRecord& Entry, std::uint64_t uRoom) {
    const bool bDeflated = Entry.uMethod == ZipDeflated;
    m_uRemaining = Entry.uUncompressedSize;
    m_uRead = 0;
    m_uWritten = 0;
    m_uCrc = static_cast<std::uint32_t>(crc32(0, nullptr, 0));
    m_uRoom = uRoom;
    m_bWantedMoreRoom = false;
    m_Judgement = TextJudgement();

    const ZipResult Result = bDeflated ? Deflate(Source) : Store(Source);
    Entry.uCrc = m_uCrc;
    Entry.uCompressedSize = m_uWritten;
    Entry.uUncompressedSize = m_uRead;
    Entry.uInternalAttributes = bDeflated && m_Judgement.IsText() ? 1 : 0;
    return Result;
}

ZipResult EntryData::Store(SourceFile& Source) {
    std::uint32_t uRead = 0;
    ZipResult Result = ReadBlock(Source, uRead);
    while (Result == ZipOk && uRead > 0) {
        Result = Put(m_Input, uRead, ZipSizeMismatch);
        if (Result == ZipOk) {
            Result = ReadBlock(Source, uRead);
        }
    }
    return Result;
}

ZipResult EntryData::Deflate(SourceFile& Source) {
    std::uint32_t uRead = 0;
    int nFlush = Z_NO_FLUSH;
    ZipResult Result = StartEngine() ? ZipOk : ZipWriteError;
    while (Result == ZipOk && nFlush != Z_FINISH) {
        Result = ReadBlock(Source, uRead);
        if (Result == ZipOk) {
            m_Judgement.Feed(m_Input, uRead);
            nFlush = uRead == 0 || m_uRemaining == 0 ? Z_FINISH : Z_NO_FLUSH;
            Result = Compress(uRead, nFlush);
        }
    }
    return Result;
}

bool EntryData::StartEngine() {
    constexpr int Level = 8;
    constexpr int RawWindow = -15;  // 32 KiB; negative: no wrapper around the deflate stream
    constexpr int DefaultMemory = 8;
    const int nState = m_bEngineReady
                           ? deflateReset(&m_Engine)
                           : deflateInit2(&m_Engine, Level, Z_DEFLATED, RawWindow, DefaultMemory, Z_DEFAULT_STRATEGY);
    m_bEngineReady = m_bEngineReady || nState == Z_OK;
    m_Engine.next_out = m_Output;
    m_Engine.avail_out = BufferSize;
    return nState == Z_OK;
}

// Compresses the first uSize bytes of the input buffer; each full output buffer is written, and the rest at the end.
ZipResult EntryData::Compress(std::uint32_t uSize, int nFlush) {
    ZipResult Result = ZipOk;
    int nState = Z_OK;
    m_Engine.next_in = m_Input;
    m_Engine.avail_in = uSize;
    while (Result == ZipOk && (nFlush == Z_FINISH ? nState != Z_STREAM_END : m_Engine.avail_in > 0)) {
        nState = deflate(&m_Engine, nFlush);
        if (nState != Z_OK && nState != Z_STREAM_END) {
            Result = ZipWriteError;
        } else if (m_Engine.avail_out == 0 || nState == Z_STREAM_END) {
            Result = Put(m_Output, BufferSize - m_Engine.avail_out, ZipWriteError);
            m_Engine.next_out = m_Output;
            m_Engine.avail_out = BufferSize;
        }
    }
    return Result;
}

// Never reads on behind the size that the source had when it was examined: a file that somebody keeps appending to
// ends there.
ZipResult EntryData::ReadBlock(SourceFile& Source, std::uint32_t& uRead) {
    const std::uint32_t uWanted = std::min<std::uint32_t>(m_uRemaining, BufferSize);
    uRead = 0;
    if (uWanted > 0 && !Source.Read(m_Input, uWanted, uRead)) {
        return ZipNoFile;
    }
    m_uRemaining -= uRead;
    m_uRead += uRead;
    m_uCrc = static_cast<std::uint32_t>(crc32(m_uCrc, m_Input, uRead));
    return ZipOk;
}

ZipResult EntryData::Put(const unsigned char* pData, std::size_t uSize, ZipResult Failure) {
    if (uSize > m_uRoom - m_uWritten) {
        m_bWantedMoreRoom = true;
        return ZipNoFile;
    }
    const std::uint64_t uBefore = m_Archive.Offset();
    const bool bWritten = m_Archive.Append(pData, uSize);
    m_uWritten += static_cast<std::uint32_t>(m_Archive.Offset() - uBefore);
    return bWritten ? ZipOk : Failure;
}

}  // namespace crashvane
