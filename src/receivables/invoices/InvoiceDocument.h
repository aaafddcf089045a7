#pragma once

#include "core/Date.h"
#include "core/Money.h"
#include "receivables/invoices/InvoiceNumbers.h"
#include "receivables/invoices/InvoiceRules.h"
#include "receivables/taxes/DocumentTaxes.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// An invoice's header as its form holds it. The lines are written to ARInvDet as they are
// entered; the header is what a save writes.
struct InvoiceHeader {
    std::int64_t ARInvoiceID = 0;
    std::string InvoiceNo;
    std::optional<std::int64_t> CustomerID, WarehouseID, CurrencyID;
    std::string Description, PurchaseOrderNo;
    Date InvoiceDate;
    int GLYear = 0, GLPeriod = 0;
    Money InvoiceAmount, PaidAmount, DiscTakenAmount, WriteOffAmount;
    InvoiceTerms Terms;
    bool Printed = false, Posted = false, TimeInvoice = false;
    DocumentTaxSet Taxes;
    TaxBuckets Buckets;
    PointOfSalePayment Payment;

    // InvoiceAmount less what was paid, taken as discount and written off.
    Money Owing() const { return InvoiceAmount - PaidAmount - DiscTakenAmount - WriteOffAmount; }
};

// One line of a whole invoice written at once.
struct InvoiceLine {
    std::optional<double> Quantity;
    std::optional<std::int64_t> ItemID;
    std::optional<Money> UnitPriceB4Disc;
    std::optional<double> PercentDiscount;
    std::string TaxCodes;
    std::string Notes;
    std::optional<std::int64_t> JobID, TaskID;
};

// What the invoice's checks say: accepted, refused, or a warning the user may pass with OK.
// Field names the field the form puts the user on ("Lines" for the grid); OpenPayment asks the
// form to open the point-of-sale payment pop-up after the message.
struct InvoiceVerdict {
    enum class Kind { Accepted, Refused, Warning };
    Kind Verdict = Kind::Accepted;
    std::string Message;
    std::string Field;
    bool OpenPayment = false;

    bool Accepted() const { return Verdict == Kind::Accepted; }
    static InvoiceVerdict Refuse(std::string message, std::string field, bool openPayment = false) {
        return {Kind::Refused, std::move(message), std::move(field), openPayment};
    }
    static InvoiceVerdict Warn(std::string message, std::string field) {
        return {Kind::Warning, std::move(message), std::move(field), false};
    }
};

// The warnings the user has already passed with OK on this save.
struct PassedWarnings {
    bool Period = false;
    bool ZeroAmount = false;
};

// The checks of a save, in their order; a posted invoice is not checked. The first refusal, or
// the first warning not yet passed, is the verdict.
InvoiceVerdict ValidateInvoice(store::Database& db, const InvoiceHeader& invoice,
                               PassedWarnings passed = {});

// Writes the header in one transaction, new or changed, with Owing recalculated. A number
// another invoice has is refused with its message and the focus on the number.
InvoiceVerdict SaveInvoice(store::Database& db, const InvoiceHeader& invoice);

// Refuses a time invoice and a posted one with their messages; otherwise removes the lines and
// then the header in one transaction.
InvoiceVerdict DeleteInvoice(store::Database& db, std::int64_t arInvoiceId);

// A whole invoice at once, for the programs that make invoices without a form: draws its keys,
// gives the lines Seq 1, 2, 3..., computes each line's adjusted price, the buckets, the taxes
// and the amount by the one tax routine, checks it as a save does (warnings pass), and writes
// header and lines in one transaction. The header's keys, amount, taxes' amounts and buckets
// are taken from here, not from the caller. Raises the refusal's message; returns the keys.
InvoiceKeys CreateInvoice(store::Database& db, InvoiceHeader header,
                          const std::vector<InvoiceLine>& lines,
                          const std::function<bool(const std::string&)>& askRetry);

// The header of a stored invoice; nothing when it is gone.
std::optional<InvoiceHeader> ReadInvoice(store::Database& db, std::int64_t arInvoiceId);

} // namespace corvane::receivables
