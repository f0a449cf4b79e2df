#include "zip/TextJudgement.h"

#include <algorithm>

namespace crashvane {

void TextJudgement::Feed(const unsigned char* pData, std::size_t uSize) {
    const std::size_t uWanted = std::min(uSize, SampleSize - (m_uText + m_uBinary));
    const auto nText = std::count_if(pData, pData + uWanted, [](unsigned char c) { return c >= 7 && c <= 127; });
    m_uText += static_cast<std::size_t>(nText);
    m_uBinary += uWanted - static_cast<std::size_t>(nText);
}

bool TextJudgement::IsText() const {
    return 4 * m_uBinary <= m_uText;
}

}  // namespace crashvane
