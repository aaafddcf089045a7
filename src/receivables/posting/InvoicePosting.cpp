#include "receivables/posting/InvoicePosting.h"

#include "banking/currencies/CurrencyConversion.h"
#include "store/Field.h"

#include <array>
#include <cmath>

namespace corvane::receivables {

using banking::DocumentLine;
using banking::LineCurrency;

Money ExtendedAmount(std::optional<double> quantity, std::optional<Money> unitPrice) {
    if (!quantity || !unitPrice) return Money();
    return unitPrice->TimesRounded(*quantity);
}

std::string PaidByText(std::optional<int> code, bool checkWording) {
    static constexpr std::array<const char*, 7> Texts{
        "Cash", "Cheque", "Bank Transfer", "Visa", "MasterCard", "American Express", "Other"};
    if (!code || *code < 1 || *code > 7) return {};
    if (*code == 2 && checkWording) return "Check";
    return Texts[static_cast<std::size_t>(*code - 1)];
}

std::string PaidByText(const store::Field& paidBy, bool checkWording) {
    if (paidBy.IsNull()) return {};
    return PaidByText(static_cast<int>(paidBy.AsInteger()), checkWording);
}

double StockAfterSale(double onHand, double quantity) {
    // nearbyint follows the default rounding mode, ties to even.
    return std::nearbyint(1000000.0 * (onHand - quantity)) / 1000000.0;
}

namespace {

ledger::AccountKey AccountOnly(std::optional<std::int64_t> id) {
    ledger::AccountKey key;
    key.GLAccountID = id;
    return key;
}

// The unit cost of a stocked item by its costing method.
std::optional<Money> UnitCostOf(const ItemForPosting& item) {
    return item.CostingMethod == 1 ? item.WgtAvgCost : item.StandardCost;
}

// The lines of the invoice's voucher before conversion, in the order they are numbered.
std::vector<DocumentLine> InvoiceDocumentLines(const InvoiceToPost& inv,
                                               InvoicePostingEffect& effect) {
    std::vector<DocumentLine> lines;
    std::int64_t seq = 0;
    auto add = [&](const ledger::AccountKey& account, Money amount, LineCurrency currency) {
        lines.push_back({++seq, account, amount, currency});
    };
    for (const InvoiceLineToPost& line : inv.Lines) {
        const Money ext = ExtendedAmount(line.Quantity, line.UnitPrice);
        // A time line credits its task type's account, without subaccounts.
        const bool timeLine = line.TaskID && *line.TaskID > 0;
        ledger::AccountKey sales = timeLine    ? AccountOnly(line.TaskSalesAccountID)
                                   : line.Item ? line.Item->Sales
                                               : ledger::AccountKey{};
        add(sales, -ext, LineCurrency::Converted);
        if (!line.Item || !line.Item->Inventory) continue;
        const ItemForPosting& item = *line.Item;
        const std::optional<Money> unitCost = UnitCostOf(item);
        if (item.Cogs.GLAccountID && item.Stock.GLAccountID) {
            const Money cost =
                unitCost ? unitCost->TimesRounded(line.Quantity.value_or(0)) : Money();
            if (!cost.IsZero()) {
                add(item.Cogs, cost, LineCurrency::AsIs);
                add(item.Stock, -cost, LineCurrency::AsIs);
            }
        }
        // The cost and the stock move are kept even when no cost rows could be written.
        effect.UnitCosts.push_back({line.Seq, unitCost});
        if (line.ItemID) effect.Stock.push_back({*line.ItemID, line.Quantity});
    }
    if (!inv.Tax1Amount.IsZero())
        add(AccountOnly(inv.Tax1GLAccountID), -inv.Tax1Amount, LineCurrency::Converted);
    if (!inv.Tax2Amount.IsZero())
        add(AccountOnly(inv.Tax2GLAccountID), -inv.Tax2Amount, LineCurrency::Converted);
    // The receivable stands in the invoice's currency, as the customer's balance does.
    add(AccountOnly(inv.ARGLAccountID), inv.InvoiceAmount, LineCurrency::AsIs);
    return lines;
}

VoucherToWrite PaymentVoucher(const InvoiceToPost& inv, bool checkWording) {
    VoucherToWrite v;
    v.TransType = "Pmt";
    v.TransDescription = "AR Payment: " + PaidByText(inv.POSPmtPaidBy, checkWording);
    if (!inv.POSPmtReference.empty()) v.TransDescription += " " + inv.POSPmtReference;
    v.JVAmount = inv.POSPmtAmount < Money() ? -inv.POSPmtAmount : inv.POSPmtAmount;
    // The bank has the customer's currency, so neither side is converted.
    v.Lines.push_back({1, AccountOnly(inv.ARGLAccountID), -inv.POSPmtAmount});
    v.Lines.push_back({2, AccountOnly(inv.POSBankGLAccountID), inv.POSPmtAmount});
    return v;
}

} // namespace

InvoicePostingEffect InvoicePosting(const InvoiceToPost& inv, bool checkWording) {
    InvoicePostingEffect effect;
    effect.Invoice.TransType = "Inv";
    effect.Invoice.TransDescription = "AR Invoice " + inv.InvoiceNo;
    const std::vector<DocumentLine> lines = InvoiceDocumentLines(inv, effect);
    effect.Invoice.Lines = banking::ConvertedVoucherLines(
        lines, banking::ExchangeRate::FromStored(inv.StoredRate), inv.GainLossGLAccountID);
    effect.Invoice.JVAmount = banking::DebitTotal(effect.Invoice.Lines);
    effect.BalanceChange = inv.InvoiceAmount - inv.POSPmtAmount;
    if (!inv.POSPmtAmount.IsZero()) effect.Payment = PaymentVoucher(inv, checkWording);
    return effect;
}

} // namespace corvane::receivables
