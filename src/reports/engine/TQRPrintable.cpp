#include "reports/engine/TQRPrintable.h"

#include "reports/export/SheetFormat.h"
#include "reports/page/FontMetrics.h"
#include "reports/page/PageText.h"
#include "store/Value.h"

#include <algorithm>
#include <memory>

namespace corvane::reports {

namespace {

// Drops the last UTF-8 character.
void PopCharacter(std::string& text) {
    while (!text.empty()) {
        const unsigned char c = static_cast<unsigned char>(text.back());
        text.pop_back();
        if ((c & 0xC0) != 0x80) break;
    }
}

// Amounts printed without a mask show two decimals with thousands.
const std::shared_ptr<const std::string>& MoneyFormat() {
    static const auto format = std::make_shared<const std::string>("#,##0.00");
    return format;
}

} // namespace

void TQRPrintable::SetBounds(double left, double top, double width, double height) {
    Left = left, Top = top, Width = width, Height = height;
}

TextOp TQRPrintable::MakeText(const Rect& box, std::string text) const {
    TextOp op;
    op.box = box;
    op.align = Alignment;
    op.font = Font;
    op.color = Color;
    double width = TextWidth(Font, text);
    if (AutoSize) {
        if (Alignment == Align::Right) op.box.left = box.Right() - width;
        if (Alignment == Align::Center) op.box.left = box.left + (box.width - width) / 2;
        op.box.width = width;
    } else if (width > box.width && text.find(kPageTotalToken) == std::string::npos) {
        while (!text.empty() && width > box.width) {
            PopCharacter(text);
            width = TextWidth(Font, text);
        }
    }
    op.text = std::move(text);
    switch (Alignment) {
    case Align::Left:
        op.x = op.box.left;
        break;
    case Align::Right:
        op.x = op.box.Right() - width;
        break;
    case Align::Center:
        op.x = op.box.left + (op.box.width - width) / 2;
        break;
    }
    op.baseline = op.box.top + Ascent(Font);
    return op;
}

void TQRPrintable::AddText(std::vector<DrawOp>& ops, std::string text) const {
    ops.emplace_back(MakeText(Rect{Left, Top, Width, Height}, std::move(text)));
}

void TQRPrintable::AddValueText(std::vector<DrawOp>& ops, std::string text,
                                const store::Value& value, const std::string& pattern) const {
    AddText(ops, std::move(text));
    CellValue& cell = std::get<TextOp>(ops.back()).cell;
    if (!sheetNumber_ || pattern != sheetPattern_) {
        sheetPattern_ = pattern;
        sheetNumber_ = std::make_shared<const std::string>(SheetNumberFormat(pattern));
        sheetDate_ = std::make_shared<const std::string>(SheetDateFormat(pattern));
    }
    switch (value.kind()) {
    case store::Value::Kind::Money:
        cell.kind = CellValue::Kind::Number;
        cell.value = value.Money().ToDouble();
        cell.format = pattern.empty() ? MoneyFormat() : sheetNumber_;
        break;
    case store::Value::Kind::Integer:
        cell.kind = CellValue::Kind::Number;
        cell.value = static_cast<double>(value.Int());
        cell.format = sheetNumber_;
        break;
    case store::Value::Kind::Float:
        cell.kind = CellValue::Kind::Number;
        cell.value = value.Float();
        cell.format = sheetNumber_;
        break;
    case store::Value::Kind::Date:
        cell.kind = CellValue::Kind::Date;
        cell.value = SheetDateSerial(value.Date());
        cell.format = sheetDate_;
        break;
    default:
        break;
    }
}

double OpTop(const DrawOp& op) {
    return std::visit(
        [](const auto& o) -> double {
            using T = std::decay_t<decltype(o)>;
            if constexpr (std::is_same_v<T, TextOp>)
                return o.box.top;
            else if constexpr (std::is_same_v<T, LineOp>)
                return std::min(o.y1, o.y2);
            else
                return o.rect.top;
        },
        op);
}

double OpBottom(const DrawOp& op) {
    return std::visit(
        [](const auto& o) -> double {
            using T = std::decay_t<decltype(o)>;
            if constexpr (std::is_same_v<T, TextOp>)
                return o.box.Bottom();
            else if constexpr (std::is_same_v<T, LineOp>)
                return std::max(o.y1, o.y2);
            else
                return o.rect.Bottom();
        },
        op);
}

void MoveOp(DrawOp& op, double dx, double dy) {
    std::visit(
        [dx, dy](auto& o) {
            using T = std::decay_t<decltype(o)>;
            if constexpr (std::is_same_v<T, TextOp>) {
                o.box.left += dx, o.box.top += dy, o.x += dx, o.baseline += dy;
            } else if constexpr (std::is_same_v<T, LineOp>) {
                o.x1 += dx, o.x2 += dx, o.y1 += dy, o.y2 += dy;
            } else {
                o.rect.left += dx, o.rect.top += dy;
            }
        },
        op);
}

} // namespace corvane::reports
