#include "ui/Stretch.h"

#include <algorithm>

namespace crashvane {
namespace {

constexpr std::int64_t One = 256;

// Where a pixel of the new size lies in the old one: between two of its pixels, a share of One beyond the
// first.
struct Position {
    std::size_t uFirst;
    std::size_t uSecond;
    std::int64_t nShare;
};

std::vector<Position> Positions(int nFrom, int nTo) {
    std::vector<Position> Result;
    Result.reserve(static_cast<std::size_t>(nTo));
    const std::int64_t nLast = nFrom - 1;
    for (std::int64_t nAt = 0; nAt < nTo; ++nAt) {
        // The middle of a pixel falls on a middle: (nAt + 1/2) * nFrom / nTo - 1/2.
        const std::int64_t nMiddle =
            std::clamp<std::int64_t>(((2 * nAt + 1) * nFrom * One / nTo - One) / 2, 0, nLast * One);
        const std::int64_t nFirst = nMiddle / One;
        Result.push_back(
            {static_cast<std::size_t>(nFirst), static_cast<std::size_t>(std::min(nFirst + 1, nLast)), nMiddle % One});
    }
    return Result;
}

std::int64_t Mix(std::int64_t nFirst, std::int64_t nSecond, std::int64_t nShare) {
    return nFirst * (One - nShare) + nSecond * nShare;
}

}  // namespace

Image Stretch(const Image& From, int nWidth, int nHeight) {
    Image To(nWidth, nHeight);
    const std::vector<Position> Columns = Positions(From.nWidth, nWidth);
    const std::vector<Position> Lines = Positions(From.nHeight, nHeight);
    for (std::size_t uLine = 0; uLine < Lines.size(); ++uLine) {
        const Position& Line = Lines[uLine];
        const std::uint8_t* const pFirst = From.Bytes.data() + Line.uFirst * From.LineSize();
        const std::uint8_t* const pSecond = From.Bytes.data() + Line.uSecond * From.LineSize();
        std::uint8_t* pTo = To.Bytes.data() + uLine * To.LineSize();
        for (const Position& Column : Columns) {
            for (std::size_t uByte = 0; uByte < 3; ++uByte) {
                const std::size_t uLeft = Column.uFirst * 3 + uByte;
                const std::size_t uRight = Column.uSecond * 3 + uByte;
                const std::int64_t nMixed = Mix(Mix(pFirst[uLeft], pFirst[uRight], Column.nShare),
                                                Mix(pSecond[uLeft], pSecond[uRight], Column.nShare), Line.nShare);
                *pTo++ = static_cast<std::uint8_t>((nMixed + One * One / 2) / (One * One));
            }
        }
    }
    return To;
}

}  // namespace crashvane
