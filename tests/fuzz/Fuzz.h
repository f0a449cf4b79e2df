// What every fuzz target uses: a reader that cuts the input into values, and the assertion.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

namespace fuzz {

// Ends the process when a property of the fuzzed code does not hold; the fuzzer keeps the input then. Written to the
// stream by its number, since a target may have put another stream in its place.
inline void Require(bool bHolds, const char* pszProperty) {
    if (!bHolds) {
        dprintf(2, "\nBROKEN: %s\n", pszProperty);
        std::abort();
    }
}

template <typename Text>
void RequireSame(const Text& strFound, const Text& strExpected, const char* pszProperty) {
    if (strFound != strExpected) {
        if constexpr (sizeof(typename Text::value_type) == 1) {
            dprintf(2, "\nfound    (%zu) %s\nexpected (%zu) %s", strFound.size(), strFound.c_str(), strExpected.size(),
                    strExpected.c_str());
        }
        Require(false, pszProperty);
    }
}

// Numbers are bytes, most significant first; what is missing at the end is zero.
class Input {
  public:
    Input(const std::uint8_t* pBytes, std::size_t uSize) : m_strBytes(reinterpret_cast<const char*>(pBytes), uSize) {}

    [[nodiscard]] bool IsEmpty() const { return m_uAt == m_strBytes.size(); }

    unsigned Byte() { return IsEmpty() ? 0 : static_cast<unsigned char>(m_strBytes[m_uAt++]); }
    bool Chance(unsigned uIn) { return Byte() % uIn == uIn - 1; }

    std::uint64_t Number(unsigned uBytes) {
        std::uint64_t uNumber = 0;
        for (unsigned uByte = 0; uByte < uBytes; ++uByte) {
            uNumber = uNumber << 8 | Byte();
        }
        return uNumber;
    }

    std::string Bytes(std::size_t uSize) {
        std::string strResult = m_strBytes.substr(m_uAt, uSize);
        m_uAt += strResult.size();
        return strResult;
    }

    // Up to a line feed, which goes too, or to the end.
    std::string Line() {
        const std::size_t uEnd = std::min(m_strBytes.find('\n', m_uAt), m_strBytes.size());
        std::string strLine = Bytes(uEnd - m_uAt);
        Byte();
        return strLine;
    }

    std::string Rest() { return Bytes(m_strBytes.size()); }

  private:
    std::string m_strBytes;
    std::size_t m_uAt = 0;
};

// A text as C sees it.
inline std::string UpToZero(const std::string& strText) {
    return strText.c_str();
}

inline std::wstring Widened(const std::string& strText) {
    std::wstring strWide;
    for (const char cByte : strText) {
        strWide += static_cast<wchar_t>(static_cast<unsigned char>(cByte));
    }
    return strWide;
}

}  // namespace fuzz
