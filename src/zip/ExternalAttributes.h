// The external attributes of an entry: a file's DOS attributes in the low byte, its Unix mode's share in the high half.
#pragma once

#include <windows.h>

#include <cstdint>

namespace crashvane {

// Set for a file whose own facts are not known.
inline constexpr std::uint32_t OrdinaryFile = 0x80000000;

// dwAttributes as the system reports them.
std::uint32_t ExternalAttributes(DWORD dwAttributes, bool bExecutable);

// The test for an executable, as readers of our archives know it: its first two bytes must be 0x54AD, which no program
// has, so ordinary programs are not marked. A file of up to 40 bytes is not looked at.
inline constexpr std::uint32_t LargestNotExecutable = 40;
inline constexpr std::uint32_t NewHeaderOffsetAt = 36;

// Whether the file has a second header to look at, at uNewHeaderOffset (the 32 bits at NewHeaderOffsetAt).
bool HasNewHeader(std::uint32_t uFileSize, std::uint32_t uFirstTwoBytes, std::uint32_t uNewHeaderOffset);

// Whether the 32 bits that stand there are those of an executable.
bool IsExecutableMark(std::uint32_t uNewHeader);

}  // namespace crashvane
