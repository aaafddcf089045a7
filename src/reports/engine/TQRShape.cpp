#include "reports/engine/TQRShape.h"

namespace corvane::reports {

void TQRShape::Print(const PrintContext&, std::vector<DrawOp>& ops) {
    switch (Shape) {
    case ShapeKind::HorLine: {
        const double y = Top + Height / 2;
        ops.emplace_back(LineOp{Left, y, Left + Width, y, PenWidth, Color});
        break;
    }
    case ShapeKind::VertLine: {
        const double x = Left + Width / 2;
        ops.emplace_back(LineOp{x, Top, x, Top + Height, PenWidth, Color});
        break;
    }
    case ShapeKind::Rectangle:
    case ShapeKind::Frame:
        ops.emplace_back(RectOp{Rect{Left, Top, Width, Height}, PenWidth, Color,
                                Shape == ShapeKind::Rectangle, Brush});
        break;
    }
}

} // namespace corvane::reports
