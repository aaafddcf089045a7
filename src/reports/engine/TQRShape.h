#pragma once

#include "reports/engine/TQRPrintable.h"

namespace corvane::reports {

// HorLine and VertLine run through the middle of the box; Rectangle is filled with Brush and
// outlined; Frame is the outline alone.
enum class ShapeKind { HorLine, VertLine, Rectangle, Frame };

class TQRShape : public TQRPrintable {
public:
    TQRShape() = default;
    explicit TQRShape(ShapeKind shape) : Shape(shape) {}

    ShapeKind Shape = ShapeKind::HorLine;
    double PenWidth = 0.5;
    reports::Color Brush{255, 255, 255};

    void Print(const PrintContext&, std::vector<DrawOp>& ops) override;
};

} // namespace corvane::reports
