#include "ledger/posting/LedgerWriter.h"

#include "core/MoneyLimit.h"

#include "store/Database.h"
#include "store/Value.h"

namespace corvane::ledger {

using store::Value;

namespace {

// The history fields posting fills, in the order WriteHistory gives their values, then the
// voucher's document ids.
std::vector<std::string> HistoryFields() {
    std::vector<std::string> fields{
        "GLHistID", "GLAccountID",      "SubAccount1ID", "SubAccount2ID", "SubAccount3ID", "GLYear",
        "GLPeriod", "Source",           "TransType",     "JVNumber",      "TransDate",     "Amount",
        "JVID",     "TransDescription", "Reconciled",    "Reconciling"};
    for (auto document : Voucher::DocumentFields)
        fields.emplace_back(document);
    return fields;
}

// The key of a year's totals.
const std::vector<std::string> TotalsKeyFields{"GLAccountID", "SubAccount1ID", "SubAccount2ID",
                                               "SubAccount3ID", "GLYear"};

std::vector<std::string> AmountFields() {
    std::vector<std::string> fields;
    for (int p = 1; p <= 12; ++p)
        fields.push_back("Amount" + std::to_string(p));
    return fields;
}

std::vector<std::string> NewTotalsFields() {
    std::vector<std::string> fields = TotalsKeyFields;
    fields.emplace_back("ActualBudget");
    for (auto& amount : AmountFields())
        fields.push_back(std::move(amount));
    return fields;
}

Value Optional(const std::optional<std::int64_t>& v) {
    return v ? Value(*v) : Value();
}

} // namespace

LedgerWriter::LedgerWriter(store::Database& db)
    : db_(db), history_(db, "GLHist", HistoryFields()),
      findTotals_(db, "GLActual", TotalsKeyFields, AmountFields()),
      insertTotals_(db, "GLActual", NewTotalsFields()),
      updateTotals_(db, "GLActual", AmountFields()) {}

void LedgerWriter::WriteHistory(const Voucher& v, const HistoryRow& row) {
    const bool linked = row.CarriesVoucherId;
    lastHistoryId_ = lastHistoryId_
                         ? *lastHistoryId_ + 1
                         : db_.NextAutoInc(store::Database::MainSchema, "GLHist", "GLHistID");
    historyIdsPending_ = true;
    std::vector<Value> values{
        Value(*lastHistoryId_),
        Optional(row.Account.GLAccountID),
        Optional(row.Account.SubAccount1ID),
        Optional(row.Account.SubAccount2ID),
        Optional(row.Account.SubAccount3ID),
        Value(row.GLYear),
        Value(row.GLPeriod),
        Value(v.Source),
        row.TransType.empty() ? Value() : Value(row.TransType),
        Value(v.JVNumber),
        Value(v.TransDate),
        Value(row.Amount),
        linked ? Value(v.JVID) : Value(),
        Value(v.TransDescription),
        linked ? Value(false) : Value(),
        linked ? Value(false) : Value(),
    };
    for (const auto& id : v.DocumentIds)
        values.push_back(Optional(id));
    history_.Queue(values);
}

LedgerWriter::YearTotals& LedgerWriter::Totals(const AccountKey& account, int year) {
    TotalsKey key{account, year};
    auto it = totals_.find(key);
    if (it != totals_.end()) return it->second;
    YearTotals totals;
    auto found = findTotals_.Find({Optional(account.GLAccountID), Optional(account.SubAccount1ID),
                                   Optional(account.SubAccount2ID), Optional(account.SubAccount3ID),
                                   Value(year)});
    if (found) {
        totals.Row = found->Row;
        for (std::size_t p = 0; p < 12; ++p)
            if (!found->Values[p].IsNull()) totals.Amounts[p] = found->Values[p].Money();
    } else {
        totals.Changed = true; // a new row is written even when no amount changes
    }
    return totals_.emplace(key, totals).first->second;
}

void LedgerWriter::AddToTotals(const BalanceDelta& delta) {
    YearTotals& totals = Totals(delta.Account, delta.GLYear);
    if (delta.GLPeriod < 1 || delta.GLPeriod > 12) return;
    auto& amount = totals.Amounts[static_cast<std::size_t>(delta.GLPeriod - 1)];
    try {
        amount = amount.value_or(Money()) + delta.Amount;
    } catch (const MoneyOverflow&) {
        const auto& a = delta.Account;
        throw Exception("Posting was not done: the total of GL account id " +
                        (a.GLAccountID ? std::to_string(*a.GLAccountID) : std::string("(none)")) +
                        " for period " + std::to_string(delta.GLPeriod) + "/" +
                        std::to_string(delta.GLYear) +
                        " would be larger than the largest amount the ledger holds (" +
                        LargestAmountText + "). Nothing was changed.");
    }
    totals.Changed = true;
}

void LedgerWriter::Flush() {
    history_.Flush();
    if (historyIdsPending_) {
        db_.NoteAutoIncValue(store::Database::MainSchema, "GLHist", "GLHistID", *lastHistoryId_);
        historyIdsPending_ = false;
    }
    for (auto& [key, totals] : totals_) {
        if (!totals.Changed) continue;
        std::vector<Value> amounts;
        for (const auto& a : totals.Amounts)
            amounts.push_back(a ? Value(*a) : Value());
        if (totals.Row) {
            updateTotals_.Set(*totals.Row, amounts);
        } else {
            const AccountKey& a = key.first;
            std::vector<Value> values{Optional(a.GLAccountID),   Optional(a.SubAccount1ID),
                                      Optional(a.SubAccount2ID), Optional(a.SubAccount3ID),
                                      Value(key.second),         Value("A")};
            values.insert(values.end(), amounts.begin(), amounts.end());
            totals.Row = insertTotals_.Add(values);
        }
        totals.Changed = false;
    }
}

std::int64_t LedgerWriter::CountHistory(std::int64_t jvid) {
    history_.Flush();
    return store::CountRowsWhere(db_, "GLHist", "JVID", Value(jvid));
}

void LedgerWriter::DeleteHistory(std::int64_t jvid) {
    history_.Flush();
    store::DeleteRowsWhere(db_, "GLHist", "JVID", Value(jvid));
}

} // namespace corvane::ledger
