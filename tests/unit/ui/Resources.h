// Reads resources of the test program, which carries the same ones as the program, without the code under test.
#pragma once

#include <windows.h>

#include <cstring>
#include <string>
#include <vector>

namespace crashvane::test {

// The bytes of a resource in exactly this language; empty when there is none.
inline std::vector<unsigned char> ResourceBytes(const char* pszType, int nId, int nLanguage) {
    const HRSRC hFound =
        FindResourceExA(nullptr, pszType, MAKEINTRESOURCEA(static_cast<WORD>(nId)), static_cast<WORD>(nLanguage));
    if (hFound == nullptr) {
        return {};
    }
    const auto* const pBytes = static_cast<const unsigned char*>(LockResource(LoadResource(nullptr, hFound)));
    return {pBytes, pBytes + SizeofResource(nullptr, hFound)};
}

// Walks over the fields of a resource.
class Reader {
  public:
    explicit Reader(const std::vector<unsigned char>& Bytes, std::size_t uAt = 0) : m_Bytes(Bytes), m_uAt(uAt) {}

    template <typename Number>
    Number Take() {
        Number Value = {};
        if (m_uAt + sizeof(Value) <= m_Bytes.size()) {
            std::memcpy(&Value, m_Bytes.data() + m_uAt, sizeof(Value));
        }
        m_uAt += sizeof(Value);
        return Value;
    }

    std::wstring TakeText(std::size_t uLength) {
        std::wstring strText;
        for (std::size_t uCount = 0; uCount < uLength; ++uCount) {
            strText += Take<wchar_t>();
        }
        return strText;
    }

    // A text up to its zero, or a number that stands behind 0xFFFF, written as "#108".
    std::wstring TakeTextOrNumber() {
        std::wstring strText;
        wchar_t cNext = Take<wchar_t>();
        if (cNext == 0xFFFF) {
            return L"#" + std::to_wstring(Take<WORD>());
        }
        for (; cNext != 0; cNext = Take<wchar_t>()) {
            strText += cNext;
        }
        return strText;
    }

    void AlignTo4() { m_uAt = (m_uAt + 3) / 4 * 4; }
    [[nodiscard]] std::size_t At() const { return m_uAt; }

  private:
    const std::vector<unsigned char>& m_Bytes;
    std::size_t m_uAt;
};

}  // namespace crashvane::test
