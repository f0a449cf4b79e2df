#include "zip/ArchiveWriter.h"

#include <windows.h>

#include <cstdlib>
#include <new>
#include <utility>

#include "zip/EntryName.h"

namespace crashvane {
namespace {

constexpr std::uint64_t SmallestDeflated = 2;

bool SpoilsTheArchive(ZipResult Result) {
    return Result == ZipWriteError || Result == ZipSizeMismatch || Result == ZipSeekError;
}

std::uint64_t CentralSize(const EntryRecord& Entry) {
    return CentralHeaderSize + Entry.uNameLength + CentralExtraSize;
}

// The numbers are drawn for their effect alone: others draw from the same process-wide sequence, and each added file
// starts it anew.
void ReseedRandomSequence() {
    const auto uDesktop = reinterpret_cast<std::uintptr_t>(GetDesktopWindow());
    std::srand(GetTickCount() ^ static_cast<unsigned>(uDesktop));
    for (int nDrawn = 0; nDrawn < 12; ++nDrawn) {
        static_cast<void>(std::rand());
    }
}

}  // namespace

ArchiveWriter::ArchiveWriter(std::unique_ptr<Output> pOutput, const ArchiveLimits& Limits, alloc_func pfnAllocate,
                             free_func pfnFree)
    : m_Limits(Limits), m_Archive(std::move(pOutput)), m_Data(m_Archive, pfnAllocate, pfnFree) {}

ZipResult ArchiveWriter::Add(const std::string& strSource, const std::string& strNameInArchive) {
    if (m_Failed != ZipOk) {
        return ZipFailedBefore;
    }
    if (m_bEnded) {
        return ZipEnded;
    }
    EntryRecord Entry;
    SourceFile Source;
    ZipResult Result = ZipOk;
    try {
        Result = Begin(Entry, Source, strSource, strNameInArchive);
        // The directory gets its place for the entry first, so that no written entry is lost for want of memory.
        if (Result == ZipOk) {
            m_Entries.push_back(std::move(Entry));
        }
    } catch (const std::bad_alloc&) {
        Result = ZipNoFile;
    }
    if (Result == ZipOk) {
        Result = WriteEntry(m_Entries.back(), Source);
        if (Result == ZipOk) {
            m_uDirectorySize += CentralSize(m_Entries.back());
        } else {
            m_Entries.pop_back();
        }
    }
    m_Failed = SpoilsTheArchive(Result) ? Result : ZipOk;
    return Result;
}

// Everything that can be said of an entry before its first byte is written.
ZipResult ArchiveWriter::Begin(EntryRecord& Entry, SourceFile& Source, const std::string& strSource,
                               const std::string& strName) {
    Entry.strName = EntryName(strName, CP_ACP);
    if (strSource.empty() || Entry.strName.empty() || Entry.strName.size() > LongestEntryName) {
        return ZipBadArgs;
    }
    Entry.uNameLength = static_cast<std::uint32_t>(Entry.strName.size());
    Entry.uMethod = MethodFor(Entry.strName);

    ZipResult Result = Source.Open(strSource);
    // It is the archive whose position is asked for, and the source's facts that hang on the answer.
    if (Result == ZipOk && m_Archive.KnowsPosition()) {
        Result = Source.Examine(Entry);
    } else if (Result == ZipOk) {
        AssumeFacts(Entry);
    }
    Entry.uCompressedSize = Entry.uMethod == ZipStored ? Entry.uUncompressedSize : 0;
    Entry.uHeaderOffset = static_cast<std::uint32_t>(m_Archive.Offset());
    if (Result == ZipOk && !Fits(Entry)) {
        Result = ZipNoFile;
    }
    return Result;
}

bool ArchiveWriter::Fits(const EntryRecord& Entry) const {
    const bool bStoredSizeKnown = Entry.uMethod == ZipStored && Entry.uUncompressedSize != UnknownSize;
    const std::uint64_t uLeast = bStoredSizeKnown ? Entry.uUncompressedSize : SmallestDeflated;
    return m_Entries.size() < m_Limits.uEntries && RoomForData(Entry) >= static_cast<std::int64_t>(uLeast);
}

// What the archive can still take, less everything else that the entry and the end will need.
std::int64_t ArchiveWriter::RoomForData(const EntryRecord& Entry) const {
    const std::uint64_t uHeader = LocalHeaderSize + Entry.uNameLength + LocalExtraSize;
    const std::uint64_t uDescriptor = m_Archive.CanSeek() ? 0 : DataDescriptorSize;
    const std::uint64_t uEnd = m_uDirectorySize + CentralSize(Entry) + EndRecordSize;
    const std::uint64_t uTaken = Entry.uHeaderOffset + uHeader + uDescriptor + uEnd;
    return static_cast<std::int64_t>(m_Limits.uBytes) - static_cast<std::int64_t>(uTaken);
}

ZipResult ArchiveWriter::WriteEntry(EntryRecord& Entry, SourceFile& Source) {
    const std::uint32_t uAnnouncedSize = Entry.uCompressedSize;
    const auto uRoom = static_cast<std::uint64_t>(RoomForData(Entry));
    const RecordBytes Header = LocalHeader(Entry);
    if (!m_Archive.Append(Header.Bytes.data(), Header.uSize)) {
        return ZipWriteError;
    }
    ReseedRandomSequence();
    ZipResult Result = m_Data.Write(Source, Entry, uRoom);
    if (Result == ZipOk) {
        Result = m_Archive.CanSeek() ? CompleteHeader(Entry) : AppendDescriptor(Entry, uAnnouncedSize);
    } else if (m_Data.WantedMoreRoom() && m_Archive.CanSeek()) {
        const ZipResult TakenBack = m_Archive.TakeBack(Entry.uHeaderOffset);
        Result = TakenBack == ZipOk ? Result : TakenBack;
    }
    return Result;
}

// Writes the local header again, with what is known now.
ZipResult ArchiveWriter::CompleteHeader(EntryRecord& Entry) {
    Entry.uFlags &= ~SizesFollow;
    const RecordBytes Header = LocalHeader(Entry);
    return m_Archive.Rewrite(Entry.uHeaderOffset, Header.Bytes.data(), Header.uSize);
}

// An output that cannot seek keeps the header as it went out, and what it announced must have come true.
ZipResult ArchiveWriter::AppendDescriptor(const EntryRecord& Entry, std::uint32_t uAnnouncedSize) {
    if (Entry.uMethod == ZipStored && Entry.uCompressedSize != uAnnouncedSize) {
        return ZipNoChange;
    }
    const RecordBytes Descriptor = DataDescriptor(Entry);
    return m_Archive.Append(Descriptor.Bytes.data(), Descriptor.uSize) ? ZipOk : ZipWriteError;
}

ZipResult ArchiveWriter::Finish() {
    ZipResult Result = ZipOk;
    if (!m_bEnded) {
        m_bEnded = true;
        // A spoiled archive may have been left anywhere.
        const bool bAtEnd = m_Failed == ZipOk || m_Archive.SeekToEnd();
        Result = bAtEnd && WriteDirectory() ? ZipOk : ZipWriteError;
        m_Archive.Close();
    }
    return Result;
}

bool ArchiveWriter::WriteDirectory() {
    DirectoryEnd End;
    End.uOffset = static_cast<std::uint32_t>(m_Archive.Offset());
    End.uEntries = static_cast<std::uint32_t>(m_Entries.size());
    bool bWritten = true;
    for (const EntryRecord& Entry : m_Entries) {
        const RecordBytes Header = CentralHeader(Entry);
        bWritten = bWritten && m_Archive.Append(Header.Bytes.data(), Header.uSize);
    }
    m_Entries.clear();
    End.uSize = static_cast<std::uint32_t>(m_Archive.Offset() - End.uOffset);
    const RecordBytes Record = EndRecord(End);
    return bWritten && m_Archive.Append(Record.Bytes.data(), Record.uSize);
}

}  // namespace crashvane
