#include "reports/engine/TQRExpr.h"

#include "reports/engine/ValueText.h"

namespace corvane::reports {

void TQRExpr::Bind(BindContext& context) {
    compiled_.emplace(Expression, context.resolver);
    TQRBand* master = Master ? Master : context.defaultMaster;
    if (compiled_->HasAggregates() && master) context.registerTotal(*master, *this);
}

void TQRExpr::Print(const PrintContext&, std::vector<DrawOp>& ops) {
    const store::Value value = compiled_->Evaluate();
    AddValueText(ops, FormatReportValue(value, Mask), value, Mask);
}

void TQRExpr::AfterBandPrinted() {
    if (ResetAfterPrint) Reset();
}

store::Value TQRExpr::Value() const {
    return compiled_->Evaluate();
}

void TQRExpr::Accumulate() {
    compiled_->Accumulate();
}

void TQRExpr::Reset() {
    compiled_->Reset();
}

} // namespace corvane::reports
