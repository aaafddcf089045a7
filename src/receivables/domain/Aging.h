#pragma once

#include "core/Date.h"
#include "core/Money.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// The age columns of the aged receivables: 0 to 30, 31 to 60, 61 to 90 and over 90 days. The
// age counts from the invoice date, not from the due date, so terms never move an invoice.
int AgeColumn(int ageInDays);

// An amount in the customer's currency at the currency's present rate, to the cent; a currency
// without a rate (0) is taken as it stands.
Money DomesticAmount(Money amount, double exchangeRate);

// What the customer owes now and since when: the open invoices' present Owing, not the as-of
// figures, which is what the thresholds read.
struct CustomerOpenSum {
    Money Owing;
    Date OldestInvoice;
};

// The two thresholds of the aging and the statements. Zero switches one off.
struct AgingThresholds {
    Money MinOwing;
    int MinDaysOld = 0;

    // A customer passes unless Min Owing is above the customer's present sum, or Min Days Old is
    // above the age of the oldest open invoice as of the date. A customer with nothing open has
    // a sum of 0 and no age.
    bool Pass(const CustomerOpenSum* sum, Date asOf) const;
};

// The present open sums of every customer with something open, read once for a run.
class CustomerOpenSums {
public:
    explicit CustomerOpenSums(store::Database& db);
    const CustomerOpenSum* Find(std::int64_t customerId) const;

private:
    std::unordered_map<std::int64_t, CustomerOpenSum> sums_;
};

// The options of the receivables reports that are checked before any report runs; each returns
// the refusal's sentence, or nothing.
std::optional<std::string> CheckMinOwing(Money minOwing);
std::optional<std::string> CheckMinDaysOld(int minDaysOld);
std::optional<std::string> CheckPeriod(int period);

// A date as the aging's heading shows it ("Mar 5, 2018", or "05 Mar 2018" where the short date
// does not begin with the month), and as a statement does ("March 5, 2018", "05 March 2018").
std::string HeadingDate(Date date);
std::string StatementDate(Date date);

} // namespace corvane::receivables
