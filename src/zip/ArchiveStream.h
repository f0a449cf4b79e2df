// An archive's bytes: appended one after the other, but that a local header is written a second time.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "zip/Output.h"
#include "zip/ZipResult.h"

namespace crashvane {

class ArchiveStream {
  public:
    explicit ArchiveStream(std::unique_ptr<Output> pOutput) : m_pOutput(std::move(pOutput)) {}

    // The offset of the next append: what was really written so far.
    [[nodiscard]] std::uint64_t Offset() const { return m_uOffset; }
    [[nodiscard]] bool CanSeek() const { return m_pOutput->CanSeek(); }
    [[nodiscard]] bool KnowsPosition() const;

    // False: not all of it could be written; the offset advances by what was.
    bool Append(const void* pData, std::size_t uSize);

    // Writes over what stands at uAt, then goes on at the end. ZipSeekError, ZipWriteError.
    ZipResult Rewrite(std::uint64_t uAt, const void* pData, std::size_t uSize);

    // Forgets what was appended from uAt on. ZipSeekError: the next append would not land at the offset.
    ZipResult TakeBack(std::uint64_t uAt);

    // Finds the end again after a failure that may have left the position elsewhere.
    bool SeekToEnd() { return m_pOutput->Seek(m_uOffset); }

    // Closes the output.
    void Close() { m_pOutput.reset(); }

  private:
    std::unique_ptr<Output> m_pOutput;
    std::uint64_t m_uOffset = 0;
};

}  // namespace crashvane
