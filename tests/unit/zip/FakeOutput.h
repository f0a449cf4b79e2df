// Stands in for the archive's file where a disk cannot be made to fail at will. Its bytes outlive the writer.
#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "zip/Output.h"

namespace crashvane::test {

struct FakeDisk {
    std::string strBytes;
    int nWrites = 0;  // calls so far
    int nSeeks = 0;
    std::map<int, std::size_t> ShortWrites;  // the call that writes only so many bytes; 1 is the first
    std::function<bool(int)> SeekFails;      // told the call
    std::function<void(int)> BeforeWrite;    // told the call
    bool bKnowsPosition = true;
    bool bCanSeek = true;
    bool bClosed = false;
};

class FakeOutput final : public Output {
  public:
    explicit FakeOutput(FakeDisk& Disk) : m_Disk(Disk) {}
    ~FakeOutput() override { m_Disk.bClosed = true; }

    std::size_t Write(const void* pData, std::size_t uSize) override {
        ++m_Disk.nWrites;
        if (m_Disk.BeforeWrite) {
            m_Disk.BeforeWrite(m_Disk.nWrites);
        }
        const auto Short = m_Disk.ShortWrites.find(m_Disk.nWrites);
        const std::size_t uWritten = Short != m_Disk.ShortWrites.end() ? std::min(Short->second, uSize) : uSize;
        m_Disk.strBytes.resize(std::max(m_Disk.strBytes.size(), m_uAt + uWritten));
        m_Disk.strBytes.replace(m_uAt, uWritten, static_cast<const char*>(pData), uWritten);
        m_uAt += uWritten;
        return uWritten;
    }
    bool Position(std::uint64_t& uPosition) override {
        uPosition = m_uAt;
        return m_Disk.bKnowsPosition;
    }
    bool Seek(std::uint64_t uPosition) override {
        ++m_Disk.nSeeks;
        if (m_Disk.SeekFails && m_Disk.SeekFails(m_Disk.nSeeks)) {
            return false;
        }
        m_uAt = static_cast<std::size_t>(uPosition);
        return true;
    }
    bool Truncate(std::uint64_t uPosition) override {
        const bool bResult = Seek(uPosition);
        if (bResult) {
            m_Disk.strBytes.resize(m_uAt);
        }
        return bResult;
    }
    [[nodiscard]] bool CanSeek() const override { return m_Disk.bCanSeek; }

  private:
    FakeDisk& m_Disk;
    std::size_t m_uAt = 0;
};

// Remembers how much was written and where, and no bytes: for archives of gigabytes.
struct BottomlessDisk {
    std::uint64_t uSize = 0;
    std::uint64_t uAt = 0;
    std::string strLast;  // the bytes of the last write
};

class BottomlessOutput final : public Output {
  public:
    explicit BottomlessOutput(BottomlessDisk& Disk) : m_Disk(Disk) {}
    std::size_t Write(const void* pData, std::size_t uSize) override {
        m_Disk.uAt += uSize;
        m_Disk.uSize = std::max(m_Disk.uSize, m_Disk.uAt);
        m_Disk.strLast.assign(static_cast<const char*>(pData), uSize);
        return uSize;
    }
    bool Position(std::uint64_t& uPosition) override {
        uPosition = m_Disk.uAt;
        return true;
    }
    bool Seek(std::uint64_t uPosition) override {
        m_Disk.uAt = uPosition;
        return true;
    }
    bool Truncate(std::uint64_t uPosition) override {
        m_Disk.uAt = m_Disk.uSize = uPosition;
        return true;
    }
    [[nodiscard]] bool CanSeek() const override { return true; }

  private:
    BottomlessDisk& m_Disk;
};

}  // namespace crashvane::test
