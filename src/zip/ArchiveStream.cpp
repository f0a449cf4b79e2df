#include "zip/ArchiveStream.h"

namespace crashvane {

bool ArchiveStream::KnowsPosition() const {
    std::uint64_t uPosition = 0;
    return m_pOutput->Position(uPosition);
}

bool ArchiveStream::Append(const void* pData, std::size_t uSize) {
    const std::size_t uWritten = m_pOutput->Write(pData, uSize);
    m_uOffset += uWritten;
    return uWritten == uSize;
}

ZipResult ArchiveStream::Rewrite(std::uint64_t uAt, const void* pData, std::size_t uSize) {
    ZipResult Result = m_pOutput->Seek(uAt) ? ZipOk : ZipSeekError;
    if (Result == ZipOk && m_pOutput->Write(pData, uSize) != uSize) {
        Result = ZipWriteError;
    }
    if (Result == ZipOk && !SeekToEnd()) {
        Result = ZipSeekError;
    }
    return Result;
}

ZipResult ArchiveStream::TakeBack(std::uint64_t uAt) {
    if (m_pOutput->Truncate(uAt)) {
        m_uOffset = uAt;
        return ZipOk;
    }
    return SeekToEnd() ? ZipOk : ZipSeekError;
}

}  // namespace crashvane
