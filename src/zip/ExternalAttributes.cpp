#include "zip/ExternalAttributes.h"

namespace crashvane {
namespace {

constexpr std::uint32_t Folder = 0x40000000;
constexpr std::uint32_t Readable = 0x01000000;
constexpr std::uint32_t Writable = 0x00800000;
constexpr std::uint32_t Executable = 0x00400000;

struct AttributeBit {
    DWORD dwAttribute;
    std::uint32_t uBit;
};

constexpr AttributeBit DosBits[] = {
    {FILE_ATTRIBUTE_READONLY, 0x01},  {FILE_ATTRIBUTE_HIDDEN, 0x02},  {FILE_ATTRIBUTE_SYSTEM, 0x04},
    {FILE_ATTRIBUTE_DIRECTORY, 0x10}, {FILE_ATTRIBUTE_ARCHIVE, 0x20},
};

}  // namespace

std::uint32_t ExternalAttributes(DWORD dwAttributes, bool bExecutable) {
    std::uint32_t uResult = Readable;
    for (const AttributeBit& Each : DosBits) {
        uResult |= (dwAttributes & Each.dwAttribute) != 0 ? Each.uBit : 0;
    }
    uResult |= (dwAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0 ? Folder : OrdinaryFile;
    uResult |= (dwAttributes & FILE_ATTRIBUTE_READONLY) != 0 ? 0 : Writable;
    uResult |= bExecutable ? Executable : 0;
    return uResult;
}

bool HasNewHeader(std::uint32_t uFileSize, std::uint32_t uFirstTwoBytes, std::uint32_t uNewHeaderOffset) {
    constexpr std::uint64_t HeaderRest = 52;
    return uFileSize > LargestNotExecutable && uFirstTwoBytes == 0x54AD &&
           std::uint64_t{uFileSize} > std::uint64_t{uNewHeaderOffset} + HeaderRest;
}

bool IsExecutableMark(std::uint32_t uNewHeader) {
    return uNewHeader == 0x5A4D || uNewHeader == 0x454C || uNewHeader == 0x454E || uNewHeader == 0x4550;
}

}  // namespace crashvane
