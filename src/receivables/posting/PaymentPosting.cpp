#include "receivables/posting/PaymentPosting.h"

#include "banking/currencies/CurrencyConversion.h"

namespace corvane::receivables {

using banking::DocumentLine;
using banking::LineCurrency;

namespace {

ledger::AccountKey AccountOnly(std::optional<std::int64_t> id) {
    ledger::AccountKey key;
    key.GLAccountID = id;
    return key;
}

} // namespace

PaymentPostingEffect PaymentPosting(const PaymentToPost& p, bool checkWording) {
    PaymentPostingEffect effect;
    Money discount, settled; // D and T
    std::vector<DocumentLine> writeOffs;
    std::int64_t lastSeq = 0;
    for (const PaymentLineToPost& line : p.Lines) {
        lastSeq = line.Seq;
        if (!line.InvoiceExists) continue;
        effect.Invoices.push_back(
            {line.ARInvoiceID, line.PaymentAmount, line.DiscTakenAmount, line.WriteOffAmount});
        discount += line.DiscTakenAmount;
        settled += line.PaymentAmount + line.DiscTakenAmount + line.WriteOffAmount;
        // A write-off row is numbered after its line, so the voucher's numbers may have gaps.
        if (!line.WriteOffAmount.IsZero())
            writeOffs.push_back(
                {line.Seq + 3, line.WriteOffAccount, line.WriteOffAmount, LineCurrency::Converted});
    }
    effect.BalanceChange = -settled;

    std::vector<DocumentLine> lines;
    if (!settled.IsZero())
        lines.push_back({1, AccountOnly(p.ARGLAccountID), -settled, LineCurrency::AsIs});
    if (!p.ChequeAmount.IsZero())
        lines.push_back({2, AccountOnly(p.BankGLAccountID), p.ChequeAmount, LineCurrency::AsIs});
    if (!discount.IsZero())
        lines.push_back({3, AccountOnly(p.ARDiscGLAccountID), discount, LineCurrency::Converted});
    lines.insert(lines.end(), writeOffs.begin(), writeOffs.end());

    VoucherToWrite& v = effect.Voucher;
    v.TransType = "Pmt";
    v.TransDescription = "AR Payment: " + PaidByText(p.PaidBy, checkWording);
    if (!p.ChequeNo.empty()) v.TransDescription += " " + p.ChequeNo;
    v.Lines = banking::ConvertedVoucherLines(lines, banking::ExchangeRate::FromStored(p.StoredRate),
                                             p.GainLossGLAccountID, lastSeq + 4);
    // The cheque when received, the discount when given, the receivable when it grows, and each
    // positive write-off and exchange row: every debit of the voucher.
    v.JVAmount = banking::DebitTotal(v.Lines);
    return effect;
}

} // namespace corvane::receivables
