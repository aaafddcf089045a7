#pragma once

#include "reports/engine/TQRPrintable.h"

#include <cstdint>
#include <vector>

namespace corvane::reports {

// A picture of 8-bit RGB rows, scaled into the object's box (a company logo).
class TQRImage : public TQRPrintable {
public:
    int PixelWidth = 0;
    int PixelHeight = 0;
    std::vector<std::uint8_t> Rgb;

    void Print(const PrintContext&, std::vector<DrawOp>& ops) override {
        if (PixelWidth <= 0 || PixelHeight <= 0) return;
        ops.emplace_back(ImageOp{Rect{Left, Top, Width, Height}, PixelWidth, PixelHeight, Rgb});
    }
};

} // namespace corvane::reports
