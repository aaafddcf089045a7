#pragma once

#include "core/Date.h"

#include <string>
#include <string_view>

namespace corvane::store {
class Database;
}

namespace corvane::ledger {

// A ledger period: a year and a number from 1 to 12, folded to Year * 100 + Number to compare.
struct Period {
    int Year = 0;
    int Number = 0;
    int Folded() const { return Year * 100 + Number; }
    // The period after this one: the next number, or period 1 of the next year after 12.
    Period Next() const { return Number < 12 ? Period{Year, Number + 1} : Period{Year + 1, 1}; }
    bool operator==(const Period&) const = default;
};

// The period fields of the company's one Company row; a missing half is 0.
struct CompanyPeriods {
    int FiscalYear = 0;
    Period Default, WarnFrom, WarnTo, ErrorFrom, ErrorTo;
    static CompanyPeriods Read(store::Database& db);
};

// The period a new document starts with: each half of the company's default, or today's.
Period DefaultPeriod(const CompanyPeriods& company, Date today);

// What the company's period bounds say of a document's period: nothing, a refusal, or a warning
// that the user may pass with OK.
struct PeriodVerdict {
    enum class Kind { Accepted, Refused, Warning };
    Kind Verdict = Kind::Accepted;
    std::string Message;
    bool Accepted() const { return Verdict == Kind::Accepted; }
};

// The one test of a document's period, in the order the refusals are told; no question asked.
PeriodVerdict JudgePeriod(const CompanyPeriods& company, Period period);

// A year typed as two digits: 50 to 99 are 19xx, 0 to 49 are 20xx. Empty text gives 0 (null);
// a number outside 0 to 99 raises `message`, a text that is no number the conversion's own.
int TwoDigitYear(std::string_view text, const std::string& message);

} // namespace corvane::ledger
