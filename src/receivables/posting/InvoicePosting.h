#pragma once

#include "banking/currencies/ExchangeRate.h"
#include "core/Date.h"
#include "core/Money.h"
#include "ledger/posting/VoucherPosting.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {
class Field;
}

namespace corvane::receivables {

// What posting reads of a line's item: its accounts, costs and whether its type is stocked.
struct ItemForPosting {
    ledger::AccountKey Sales, Cogs, Stock;
    std::optional<Money> WgtAvgCost, StandardCost;
    bool Inventory = false;
    int CostingMethod = 0; // 1 is weighted average; anything else is standard cost
};

// One invoice line with the look-ups posting makes for it.
struct InvoiceLineToPost {
    std::int64_t Seq = 0;
    std::optional<double> Quantity;
    std::optional<Money> UnitPrice;
    std::optional<std::int64_t> ItemID;
    std::optional<std::int64_t> TaskID;
    std::optional<ItemForPosting> Item; // nothing when the line names no item that exists
    std::optional<std::int64_t> TaskSalesAccountID; // the task type's sales account
};

// An invoice as posting reads it: the stored row, its taxes computed from the stored buckets,
// and the accounts of its currency, taxes and point-of-sale bank as they stand at posting.
struct InvoiceToPost {
    std::int64_t ARInvoiceID = 0;
    std::string InvoiceNo;
    std::int64_t CustomerID = 0;
    std::optional<std::int64_t> WarehouseID;
    int GLYear = 0, GLPeriod = 0;
    Date InvoiceDate;
    Money InvoiceAmount;
    Money POSPmtAmount;
    std::optional<int> POSPmtPaidBy;
    std::string POSPmtReference;
    std::optional<std::int64_t> POSPmtBankID;
    Money Tax1Amount, Tax2Amount;
    std::optional<std::int64_t> Tax1GLAccountID, Tax2GLAccountID;
    // The currency's present rate, which posting fixes on the invoice.
    double StoredRate = 0;
    std::optional<std::int64_t> ARGLAccountID, GainLossGLAccountID, POSBankGLAccountID;
    std::vector<InvoiceLineToPost> Lines;
};

// A voucher to write, short of the keys and numbers the run draws for it.
struct VoucherToWrite {
    std::string TransType;
    std::string TransDescription;
    Money JVAmount;
    std::vector<ledger::VoucherLine> Lines;
};

struct StockMove {
    std::int64_t ItemID = 0;
    std::optional<double> Quantity; // as it stands on the line; a sale takes it off the stock
};

struct LineCost {
    std::int64_t Seq = 0;
    std::optional<Money> UnitCost;
};

// Everything posting one invoice changes, computed before anything is written.
struct InvoicePostingEffect {
    VoucherToWrite Invoice;
    // Added to the customer's balance, in the invoice's currency: what the point-of-sale payment
    // did not settle.
    Money BalanceChange;
    std::vector<LineCost> UnitCosts;       // for each line whose item is stocked
    std::vector<StockMove> Stock;          // likewise
    std::optional<VoucherToWrite> Payment; // the point-of-sale payment's voucher
};

// A line's extended amount: quantity times price, rounded to the cent; 0 when either is empty.
Money ExtendedAmount(std::optional<double> quantity, std::optional<Money> unitPrice);

// The text of a PaidBy code; the second reads "Check" where the country says so. Codes outside
// 1..7 read as nothing.
std::string PaidByText(std::optional<int> code, bool checkWording);
// The same of a PaidBy field; an empty field reads as nothing.
std::string PaidByText(const store::Field& paidBy, bool checkWording);

// The voucher lines and the other effects of posting one invoice. Sales and taxes stand in the
// invoice's currency converted to home; cost rows are in home currency already; the receivable
// stays in the invoice's currency, so an exchange row carries the difference and the voucher
// balances to the ten-thousandth.
InvoicePostingEffect InvoicePosting(const InvoiceToPost& invoice, bool checkWording);

// A stock quantity after a sale of quantity: to six decimals, ties to even, so that repeated
// sales of thirds do not leave a tail of float noise on the balance.
double StockAfterSale(double onHand, double quantity);

} // namespace corvane::receivables
