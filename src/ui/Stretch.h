// Pictures in other sizes. The system's own stretching is coarse on some systems, and a banner is seen closely.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace crashvane {

// Three bytes a pixel, each line filled up to a multiple of four bytes, as device-independent bitmaps have them.
struct Image {
    Image() = default;
    Image(int nWidthOfAll, int nHeightOfAll)
        : nWidth(nWidthOfAll), nHeight(nHeightOfAll), Bytes(LineSize() * static_cast<std::size_t>(nHeightOfAll)) {}

    [[nodiscard]] std::size_t LineSize() const { return (static_cast<std::size_t>(nWidth) * 3 + 3) / 4 * 4; }

    int nWidth = 0;
    int nHeight = 0;
    std::vector<std::uint8_t> Bytes;
};

// The picture in another size, both of them at least one pixel wide and high; pixels in between are mixed of their
// four neighbours. The same size gives the same picture.
Image Stretch(const Image& From, int nWidth, int nHeight);

}  // namespace crashvane
