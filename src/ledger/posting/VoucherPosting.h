#pragma once

#include "core/Date.h"
#include "core/Money.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::ledger {

// An account and its three subaccounts; a missing level is null, and null matches only null.
struct AccountKey {
    std::optional<std::int64_t> GLAccountID, SubAccount1ID, SubAccount2ID, SubAccount3ID;
    auto operator<=>(const AccountKey&) const = default;
};

// One line of a voucher as it stands in the voucher's lines.
struct VoucherLine {
    std::int64_t Seq = 0;
    AccountKey Account;
    Money GLAmount;
};

// A voucher header with its lines in Seq order: everything posting reads.
struct Voucher {
    // The documents a voucher may come from, copied to the history for drill down.
    static constexpr std::array<std::string_view, 7> DocumentFields{
        "VendorID",    "APInvoiceID", "ChequeID",    "CustomerID",
        "ARInvoiceID", "PaymentID",   "AdjustmentID"};

    std::int64_t JVID = 0;
    int GLYear = 0;
    int GLPeriod = 0;
    std::int64_t JVNumber = 0;
    std::string Source, TransType;
    Date TransDate;
    std::string TransDescription;
    std::array<std::optional<std::int64_t>, DocumentFields.size()> DocumentIds;
    bool AutoReverse = false;
    std::vector<VoucherLine> Lines;
};

// A history row to write for a voucher; the fields not here come from the voucher itself.
struct HistoryRow {
    AccountKey Account;
    int GLYear = 0;
    int GLPeriod = 0;
    std::string TransType;
    Money Amount;
    // Rows written by posting carry the voucher's id and cleared reconciliation flags; the
    // compensating rows of an unpost after a purge carry neither, so that a later unpost of the
    // same voucher does not take them for its own.
    bool CarriesVoucherId = true;
    bool operator==(const HistoryRow&) const = default;
};

// A change to one period amount of one account's year of totals.
struct BalanceDelta {
    AccountKey Account;
    int GLYear = 0;
    int GLPeriod = 0; // outside 1..12 it changes no amount, but the year's row is still made
    Money Amount;
    bool operator==(const BalanceDelta&) const = default;
};

struct VoucherEffect {
    std::vector<HistoryRow> History;
    std::vector<BalanceDelta> Balances;
};

// The period an auto-reversing voucher reverses into: the next one of the year, or period 1 of
// the next year after period 12 (and after any number above it).
void NextPeriod(int year, int period, int& nextYear, int& nextPeriod);

// What posting a voucher writes: for each line in order, its history row and, when the voucher
// reverses itself, the negated row in the next period ("JVR"); then the same amounts as changes
// to the totals.
VoucherEffect PostingEffect(const Voucher& voucher);

// What unposting takes off the totals: every change of PostingEffect negated. The history rows
// are the compensating ones, written only when the voucher's own rows were purged.
VoucherEffect UnpostingEffect(const Voucher& voucher);

} // namespace corvane::ledger
