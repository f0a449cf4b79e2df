// Judges whether an entry is text or binary from its beginning.
#pragma once

#include <cstddef>
#include <cstdint>

namespace crashvane {

// Fed with an entry's bytes from the first on; looks at no more than SampleSize of them.
class TextJudgement {
  public:
    static constexpr std::size_t SampleSize = 16384;

    void Feed(const unsigned char* pData, std::size_t uSize);

    // Text unless the binary bytes (0 to 6, 128 to 255) are more than a quarter of the text bytes (7 to 127). Nothing
    // at all is text.
    [[nodiscard]] bool IsText() const;

  private:
    std::size_t m_uText = 0;
    std::size_t m_uBinary = 0;
};

}  // namespace crashvane
