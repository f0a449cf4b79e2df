// Where an archive's bytes go: the file on disk, or what a test puts in its place.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "util/Handles.h"

namespace crashvane {

class Output {
  public:
    Output() = default;
    Output(const Output&) = delete;
    Output& operator=(const Output&) = delete;
    virtual ~Output() = default;

    // How many of the bytes were really written at the current position.
    virtual std::size_t Write(const void* pData, std::size_t uSize) = 0;
    virtual bool Position(std::uint64_t& uPosition) = 0;
    virtual bool Seek(std::uint64_t uPosition) = 0;
    // Ends the output there and goes on there.
    virtual bool Truncate(std::uint64_t uPosition) = 0;
    [[nodiscard]] virtual bool CanSeek() const = 0;
};

class FileOutput final : public Output {
  public:
    // Creates or replaces the file; nobody else can open it meanwhile.
    bool Create(const std::string& strPath);

    std::size_t Write(const void* pData, std::size_t uSize) override;
    bool Position(std::uint64_t& uPosition) override;
    bool Seek(std::uint64_t uPosition) override;
    bool Truncate(std::uint64_t uPosition) override;
    [[nodiscard]] bool CanSeek() const override { return true; }

  private:
    FileHandle m_hFile;
};

}  // namespace crashvane
