#pragma once

#include "core/Date.h"
#include "core/Money.h"
#include "core/Refusal.h"

#include <cstdint>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::banking {

// The checks before a bank is written: name, currency and account given, in that order, then
// the currency and the account still on file. "Bank Name must be unique" is the index's.
Verdict CheckBank(store::Database& db, store::DataSet& bank);

// A bank with cheques keeps its currency: the cheques were written in it.
Verdict CheckBankCurrencyChange(store::Database& db, std::int64_t bankId);

// Why the bank cannot be deleted: AP cheques, AR payments, then invoices paid at the point of
// sale; empty when nothing names it.
std::string BankInUse(store::Database& db, std::int64_t bankId);

// A posted ledger row on the bank's account, as the bank book reads it. Party is the vendor or
// customer of the row as "<name> (<no>)", empty when the row has none or it is gone.
struct BankHistoryRow {
    std::int64_t GLHistID = 0;
    Date TransDate;
    std::string Source;
    Money Amount;
    std::string TransDescription;
    std::string Party;
};

// One line of the bank book.
struct BankBookLine {
    std::int64_t GLHistID = 0;
    Date TransDate;
    std::string PaymentDeposit;
    std::string Description;
    Money Amount;
    Money Balance;
};

// How many of the latest rows the bank book shows.
inline constexpr std::size_t kBankBookRows = 300;

// Every posted row on the bank's account, by date and then by entry; none when the bank has no
// account or is not on file.
std::vector<BankHistoryRow> ReadBankHistory(store::Database& db, std::int64_t bankId);

// The running balance of every row from 0 (the ledger keeps all rows, so no opening balance is
// needed), and the last |shown| rows with their balance, payment or deposit and description.
std::vector<BankBookLine> BuildBankBook(std::span<const BankHistoryRow> rows,
                                        std::size_t shown = kBankBookRows);

} // namespace corvane::banking
