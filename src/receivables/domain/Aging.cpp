#include "receivables/domain/Aging.h"

#include "core/DateEntry.h"
#include "core/FormatSettings.h"
#include "store/Query.h"

namespace corvane::receivables {

int AgeColumn(int ageInDays) {
    if (ageInDays > 90) return 4;
    if (ageInDays > 60) return 3;
    if (ageInDays > 30) return 2;
    return 1;
}

Money DomesticAmount(Money amount, double exchangeRate) {
    return exchangeRate > 0 ? amount.TimesRounded(exchangeRate) : amount;
}

bool AgingThresholds::Pass(const CustomerOpenSum* sum, Date asOf) const {
    const Money owing = sum ? sum->Owing : Money();
    if (MinOwing > Money() && MinOwing > owing) return false;
    if (MinDaysOld > 0) {
        // Nothing open is no age at all, which no positive minimum reaches.
        if (!sum || MinDaysOld > asOf - sum->OldestInvoice) return false;
    }
    return true;
}

CustomerOpenSums::CustomerOpenSums(store::Database& db) {
    store::Query q(db, "SELECT CustomerID, SUM(Owing) AS Owing, MIN(InvoiceDate) AS Oldest "
                       "FROM ARInv WHERE Owing <> 0 GROUP BY CustomerID");
    q.ForEachRow([this](const std::vector<store::Value>& row) {
        if (row[0].IsNull() || row[2].IsNull()) return;
        sums_[row[0].Int()] = {row[1].IsNull() ? Money() : row[1].Money(), row[2].Date()};
    });
}

const CustomerOpenSum* CustomerOpenSums::Find(std::int64_t customerId) const {
    auto it = sums_.find(customerId);
    return it == sums_.end() ? nullptr : &it->second;
}

std::optional<std::string> CheckMinOwing(Money minOwing) {
    if (minOwing < Money() || minOwing > Money::FromWhole(100000))
        return "Min Owing must be between 0 and 100,000.00";
    return std::nullopt;
}

std::optional<std::string> CheckMinDaysOld(int minDaysOld) {
    if (minDaysOld < 0 || minDaysOld > 100) return "Min Days Old must be between 0 and 100";
    return std::nullopt;
}

std::optional<std::string> CheckPeriod(int period) {
    if (period < 1 || period > 12) return "Period must be between 1 and 12 if selected";
    return std::nullopt;
}

namespace {

bool MonthFirst() {
    const std::string& format = ProcessFormatSettings().ShortDateFormat;
    return !format.empty() && (format[0] == 'M' || format[0] == 'm');
}

} // namespace

std::string HeadingDate(Date date) {
    return FormatDate(MonthFirst() ? "mmm d, yyyy" : "dd mmm yyyy", date);
}

std::string StatementDate(Date date) {
    return FormatDate(MonthFirst() ? "mmmm d, yyyy" : "dd mmmm yyyy", date);
}

} // namespace corvane::receivables
