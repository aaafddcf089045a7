#pragma once

#include "reports/engine/TQRImage.h"
#include "reports/engine/TQRLabel.h"
#include "reports/run/TrptBase.h"
#include "store/Query.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// The sales invoice on paper, in the company's style (0 "Classic", 1 "Professional"): one page
// group for each invoice, the company and the customer at the top, the lines with their amounts,
// then the subtotal, the taxes, the invoice amount and the company's message. Time lines read
// "<job> - <task>", and a time invoice heads its columns "Hours/Qty" and "Rate/Unit Price".
class TrptARInvoice : public reports::TrptBase {
public:
    enum InvoiceStyle { Classic = 0, Professional = 1 };

    // One invoice, or with no id every unprinted one.
    TrptARInvoice(store::Database& db, std::optional<std::int64_t> arInvoiceId);
    TrptARInvoice(store::Database& db, std::optional<std::int64_t> arInvoiceId, int style);

    store::Query qryInvoice;
    store::Query qryLines;

    void Open() override;

private:
    void Build(store::Database& db);
    void FillHeader();
    void FillTotals();

    std::optional<std::int64_t> id_;
    int style_ = Classic;
    std::string message_;
    std::int64_t lastInvoice_ = -1;
    int invoicePage_ = 0;

    reports::TQRLabel* title_ = nullptr;
    reports::TQRLabel* page_ = nullptr;
    std::array<reports::TQRLabel*, 5> soldTo_{};
    std::array<reports::TQRLabel*, 5> shipTo_{};
    reports::TQRLabel* invoiceNo_ = nullptr;
    reports::TQRLabel* invoiceDate_ = nullptr;
    reports::TQRLabel* purchaseOrder_ = nullptr;
    reports::TQRLabel* description_ = nullptr;
    reports::TQRLabel* terms_ = nullptr;
    reports::TQRLabel* quantityHeading_ = nullptr;
    reports::TQRLabel* priceHeading_ = nullptr;
    std::array<reports::TQRLabel*, 4> totalCaptions_{};
    std::array<reports::TQRLabel*, 4> totalAmounts_{};
};

// The company's invoice style and copies as Invoice Print Setup keeps them.
int CompanyInvoiceStyle(store::Database& db);
int CompanyInvoiceCopies(store::Database& db);

} // namespace corvane::receivables
