#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace corvane::receivables {

// A picture as the report's image object draws it: rows top to bottom, three bytes a pixel.
struct RgbImage {
    int Width = 0, Height = 0;
    std::vector<std::uint8_t> Rgb;
};

// A Windows bitmap (".bmp") of 24 or 32 bits a pixel, or of 8 bits with a palette, without
// compression; nothing for any other file, which the logo then leaves out.
std::optional<RgbImage> DecodeBitmap(std::string_view bytes);

} // namespace corvane::receivables
