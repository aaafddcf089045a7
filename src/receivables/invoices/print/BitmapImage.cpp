#include "receivables/invoices/print/BitmapImage.h"

#include <cstdlib>

namespace corvane::receivables {

namespace {

std::uint32_t U32(std::string_view b, std::size_t at) {
    return static_cast<std::uint32_t>(static_cast<unsigned char>(b[at])) |
           static_cast<std::uint32_t>(static_cast<unsigned char>(b[at + 1])) << 8 |
           static_cast<std::uint32_t>(static_cast<unsigned char>(b[at + 2])) << 16 |
           static_cast<std::uint32_t>(static_cast<unsigned char>(b[at + 3])) << 24;
}

std::uint16_t U16(std::string_view b, std::size_t at) {
    return static_cast<std::uint16_t>(static_cast<unsigned char>(b[at]) |
                                      static_cast<unsigned char>(b[at + 1]) << 8);
}

} // namespace

std::optional<RgbImage> DecodeBitmap(std::string_view b) {
    if (b.size() < 54 || b[0] != 'B' || b[1] != 'M') return std::nullopt;
    const std::uint32_t offset = U32(b, 10);
    const std::uint32_t headerSize = U32(b, 14);
    const auto width = static_cast<std::int32_t>(U32(b, 18));
    const auto rawHeight = static_cast<std::int32_t>(U32(b, 22));
    const std::uint16_t bits = U16(b, 28);
    const std::uint32_t compression = U32(b, 30);
    // BI_RGB, or BI_BITFIELDS with the usual masks of a 32-bit picture.
    if (compression != 0 && !(compression == 3 && bits == 32)) return std::nullopt;
    if (width <= 0 || rawHeight == 0 || width > 10000 || std::abs(rawHeight) > 10000)
        return std::nullopt;
    if (bits != 24 && bits != 32 && bits != 8) return std::nullopt;
    const bool bottomUp = rawHeight > 0;
    const int height = std::abs(rawHeight);
    const std::size_t stride = ((static_cast<std::size_t>(width) * bits + 31) / 32) * 4;
    if (offset > b.size() || b.size() - offset < stride * static_cast<std::size_t>(height))
        return std::nullopt;
    std::uint32_t colours = bits == 8 ? U32(b, 46) : 0;
    if (bits == 8 && colours == 0) colours = 256;
    const std::size_t palette = 14 + static_cast<std::size_t>(headerSize);
    if (bits == 8 && palette + 4 * static_cast<std::size_t>(colours) > offset) return std::nullopt;

    RgbImage image{width, height, {}};
    image.Rgb.resize(static_cast<std::size_t>(width) * static_cast<std::size_t>(height) * 3);
    for (int y = 0; y < height; ++y) {
        const std::size_t row =
            offset + stride * static_cast<std::size_t>(bottomUp ? height - 1 - y : y);
        for (int x = 0; x < width; ++x) {
            std::size_t at = 0;
            if (bits == 8) {
                const auto index = static_cast<unsigned char>(b[row + static_cast<std::size_t>(x)]);
                if (index >= colours) return std::nullopt;
                at = palette + 4 * static_cast<std::size_t>(index);
            } else {
                at = row + static_cast<std::size_t>(x) * (bits / 8);
            }
            auto* out = &image.Rgb[(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                                    static_cast<std::size_t>(x)) *
                                   3];
            out[0] = static_cast<std::uint8_t>(b[at + 2]);
            out[1] = static_cast<std::uint8_t>(b[at + 1]);
            out[2] = static_cast<std::uint8_t>(b[at]);
        }
    }
    return image;
}

} // namespace corvane::receivables
