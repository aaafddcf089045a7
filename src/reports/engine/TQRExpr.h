#pragma once

#include "reports/engine/Expression.h"
#include "reports/engine/TQRPrintable.h"

#include <optional>

namespace corvane::reports {

// The value of an expression. Its totals take in each row that its master band prints (the
// report's detail band unless set; the sub-detail band for an object placed on one), and with
// ResetAfterPrint they start again once the object has printed: a group footer's total covers
// its group, a page footer's total its page.
class TQRExpr : public TQRPrintable {
public:
    TQRExpr() = default;
    explicit TQRExpr(std::string expression) : Expression(std::move(expression)) {}

    std::string Expression;
    std::string Mask;
    bool ResetAfterPrint = false;
    TQRBand* Master = nullptr;

    void Bind(BindContext& context) override;
    void Print(const PrintContext&, std::vector<DrawOp>& ops) override;
    void AfterBandPrinted() override;

    // The value now; valid after the report has bound its objects.
    store::Value Value() const;
    void Accumulate();
    void Reset();

private:
    std::optional<reports::Expression> compiled_;
};

} // namespace corvane::reports
