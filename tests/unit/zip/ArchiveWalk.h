// Reads a finished archive byte by byte, as strictly as no unpacking tool does. Shares nothing with the writer but
// inflate's counterpart: records and CRC are read by code of its own.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace crashvane::test {

struct WalkedEntry {
    std::string strName;
    std::uint32_t uFlags = 0;
    std::uint32_t uMethod = 0;
    std::uint32_t uTime = 0;
    std::uint32_t uDate = 0;
    std::uint32_t uCrc = 0;
    std::uint32_t uCompressedSize = 0;
    std::uint32_t uUncompressedSize = 0;
    std::uint32_t uInternal = 0;
    std::uint32_t uExternal = 0;
    std::uint32_t uOffset = 0;
    std::string strLocalExtra;
    std::string strCentralExtra;
    std::string strContent;  // uncompressed
};

struct Walk {
    std::vector<WalkedEntry> Entries;
    std::uint32_t uGaps = 0;   // bytes that belong to no entry
    std::string strComplaint;  // empty: everything is as it must be
};

// Complains of: a signature, version, count, size, offset, name or CRC that is not right, local and central headers
// that differ, flags that are not uFlags, deflated data that ends early or late, bytes behind the end.
Walk WalkArchive(const std::string& strArchive, std::uint32_t uFlags = 0);

// Bit by bit, without a table.
std::uint32_t SlowCrc(const std::string& strBytes);

// "50 4B" to its bytes; everything between double quotes stands for itself, blanks and line ends are skipped.
std::string FromHex(const std::string& strHex);

// Lowest byte first.
std::string Number(std::uint32_t uValue, unsigned uWidth);

}  // namespace crashvane::test
