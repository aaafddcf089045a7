#pragma once

#include "reports/engine/TQRPrintable.h"

namespace corvane::reports {

// Fixed text; a BeforePrint handler may change the caption for each band it prints on.
class TQRLabel : public TQRPrintable {
public:
    TQRLabel() = default;
    explicit TQRLabel(std::string caption) : Caption(std::move(caption)) {}

    std::string Caption;

    void Print(const PrintContext&, std::vector<DrawOp>& ops) override { AddText(ops, Caption); }
};

} // namespace corvane::reports
