#pragma once

#include "core/Money.h"
#include "ledger/domain/PeriodRules.h"

#include <string>

namespace corvane::store {
class DataSet;
class Database;
class Table;
} // namespace corvane::store

namespace corvane::ledger {

// A journal voucher as a document: the checks before a save, the save and the delete, the same
// for the voucher form, the voucher list, the import of lines and the sample company. The forms
// turn the verdicts into messages, focus and questions.

// What the save checks read of a voucher.
struct VoucherFacts {
    Period VoucherPeriod;
    std::string Description;
    bool HasLines = false;
    Money Debits;  // the positive lines
    Money Credits; // the negative lines, so a balanced voucher's totals cancel
    Money Amount;  // JVAmount
};

// Why a voucher may not be saved, in the order the checks run.
enum class VoucherFault {
    None,
    PeriodRefused,
    PeriodWarning, // saved only when the user confirms
    NoDescription,
    NoLines,
    NoDebits,
    NoCredits,
    OutOfBalance,
    NoAmounts,
};

struct VoucherVerdict {
    VoucherFault Fault = VoucherFault::None;
    std::string Message; // the text the user reads
    bool Ok() const { return Fault == VoucherFault::None; }
    // The faults the user mends in the lines rather than the header.
    bool InLines() const;
    // A missing debit or credit is mended on a new line.
    bool WantsNewLine() const;
};

// The checks in order; the first that fails is the verdict. A period warning the user has
// already confirmed is passed over.
VoucherVerdict ValidateVoucher(const CompanyPeriods& company, const VoucherFacts& facts,
                               bool periodWarningConfirmed = false);

// Saves the voucher in one transaction: the header cursor in insert or edit (its JVID set), and
// every row of lines (JVDet's fields) as its lines, which replace those saved before. When
// anything fails nothing is written, and the header stays in its edit for the user to mend.
void SaveVoucher(store::Table& header, store::DataSet& lines);

// Why a voucher may not be deleted: empty when it may. number is the voucher's number as shown.
std::string VoucherDeleteRefusal(store::DataSet& header);

// Deletes the voucher the cursor stands on and its lines, in one transaction.
void DeleteVoucher(store::Table& header);

} // namespace corvane::ledger
