#include "core/Date.h"
#include "core/Money.h"
#include "core/Rounding.h"
#include "store/sql/SqlTranslator.h"

#include <cmath>
#include <optional>
#include <sqlite3.h>
#include <string>

// The functions that translated SQL calls. Dates are ISO text and money whole ten-thousandths;
// a null or unreadable argument gives null, as SQL functions do.
namespace corvane::store::sql {

namespace {

std::string Text(sqlite3_value* v) {
    const unsigned char* t = sqlite3_value_text(v);
    return t ? std::string(reinterpret_cast<const char*>(t),
                           static_cast<std::size_t>(sqlite3_value_bytes(v)))
             : std::string();
}

// A date given as 'yyyy-mm-dd', possibly followed by a time of day.
std::optional<Date> DateArg(sqlite3_value* v) {
    if (sqlite3_value_type(v) != SQLITE_TEXT) return std::nullopt;
    std::string text = Text(v);
    if (text.size() > 10 && (text[10] == ' ' || text[10] == 'T')) text.resize(10);
    return Date::FromIso(text);
}

// A number argument as SQLite would read it; text that is no number gives nothing.
std::optional<double> NumberArg(sqlite3_value* v) {
    switch (sqlite3_value_numeric_type(v)) {
    case SQLITE_INTEGER:
        return static_cast<double>(sqlite3_value_int64(v));
    case SQLITE_FLOAT:
        return sqlite3_value_double(v);
    default:
        return std::nullopt;
    }
}

void ResultDate(sqlite3_context* c, Date d) {
    static const std::int32_t first = Date::FromYmd(1, 1, 1).DayNumber();
    static const std::int32_t last = Date::FromYmd(9999, 12, 31).DayNumber();
    if (d.DayNumber() < first || d.DayNumber() > last) {
        sqlite3_result_null(c);
        return;
    }
    std::string iso = d.ToIso();
    sqlite3_result_text(c, iso.c_str(), static_cast<int>(iso.size()), SQLITE_TRANSIENT);
}

template <int (Date::*Part)() const> void DatePart(sqlite3_context* c, int, sqlite3_value** argv) {
    if (auto d = DateArg(argv[0]))
        sqlite3_result_int(c, ((*d).*Part)());
    else
        sqlite3_result_null(c);
}

// Whole days only: a fraction of a day is cut toward zero.
std::optional<int> DaysArg(sqlite3_value* v) {
    auto n = NumberArg(v);
    if (!n || std::fabs(*n) > 4e6) return std::nullopt;
    return static_cast<int>(std::trunc(*n));
}

void DateAdd(sqlite3_context* c, int, sqlite3_value** argv) {
    auto d = DateArg(argv[0]);
    auto n = DaysArg(argv[1]);
    if (d && n)
        ResultDate(c, d->AddDays(*n));
    else
        sqlite3_result_null(c);
}

// date - date gives days; date - number gives a date.
void DateSub(sqlite3_context* c, int, sqlite3_value** argv) {
    auto d = DateArg(argv[0]);
    if (!d) {
        sqlite3_result_null(c);
        return;
    }
    if (auto other = DateArg(argv[1])) {
        sqlite3_result_int(c, *d - *other);
        return;
    }
    if (auto n = DaysArg(argv[1]))
        ResultDate(c, d->AddDays(-*n));
    else
        sqlite3_result_null(c);
}

void ToDate(sqlite3_context* c, int, sqlite3_value** argv) {
    if (auto d = DateArg(argv[0]))
        ResultDate(c, *d);
    else
        sqlite3_result_null(c);
}

void Trunc(sqlite3_context* c, int, sqlite3_value** argv) {
    if (sqlite3_value_numeric_type(argv[0]) == SQLITE_INTEGER) {
        sqlite3_result_int64(c, sqlite3_value_int64(argv[0]));
        return;
    }
    auto n = NumberArg(argv[0]);
    if (n && std::fabs(*n) < 9.2e18)
        sqlite3_result_int64(c, static_cast<sqlite3_int64>(std::trunc(*n)));
    else
        sqlite3_result_null(c);
}

// Ten-thousandths, possibly fractional after a product, to a whole count: half away from zero.
std::optional<std::int64_t> UnitsArg(sqlite3_value* v) {
    if (sqlite3_value_numeric_type(v) == SQLITE_INTEGER) return sqlite3_value_int64(v);
    auto n = NumberArg(v);
    if (!n || std::fabs(*n) >= 9.2e18) return std::nullopt;
    return static_cast<std::int64_t>(RoundHalfAway(*n));
}

void Units(sqlite3_context* c, int, sqlite3_value** argv) {
    if (auto u = UnitsArg(argv[0]))
        sqlite3_result_int64(c, *u);
    else
        sqlite3_result_null(c);
}

// Plain decimal text of an amount, with two decimals at least: "12.50", "-3.1416".
void MoneyText(sqlite3_context* c, int, sqlite3_value** argv) {
    auto u = UnitsArg(argv[0]);
    if (!u) {
        sqlite3_result_null(c);
        return;
    }
    std::string text = Money::FromUnits(*u).ToString();
    while (text.size() - text.find('.') > 3 && text.back() == '0')
        text.pop_back();
    sqlite3_result_text(c, text.c_str(), static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

// An amount written as text ("1,234.56") to ten-thousandths.
void MoneyParse(sqlite3_context* c, int, sqlite3_value** argv) {
    if (sqlite3_value_type(argv[0]) != SQLITE_TEXT) {
        Units(c, 1, argv);
        return;
    }
    if (auto m = Money::Parse(Text(argv[0])))
        sqlite3_result_int64(c, m->Units());
    else
        sqlite3_result_null(c);
}

} // namespace

void RegisterSqlFunctions(sqlite3* db) {
    using Fn = void (*)(sqlite3_context*, int, sqlite3_value**);
    static const struct {
        const char* Name;
        int Args;
        Fn Function;
    } functions[] = {
        {"YEAR", 1, DatePart<&Date::Year>},
        {"MONTH", 1, DatePart<&Date::Month>},
        {"DAY", 1, DatePart<&Date::Day>},
        {"cv_date", 1, ToDate},
        {"cv_date_add", 2, DateAdd},
        {"cv_date_sub", 2, DateSub},
        {"cv_trunc", 1, Trunc},
        {"cv_units", 1, Units},
        {"cv_money_text", 1, MoneyText},
        {"cv_money_parse", 1, MoneyParse},
    };
    for (const auto& f : functions) {
        sqlite3_create_function_v2(db, f.Name, f.Args,
                                   SQLITE_UTF8 | SQLITE_DETERMINISTIC | SQLITE_INNOCUOUS, nullptr,
                                   f.Function, nullptr, nullptr, nullptr);
    }
}

} // namespace corvane::store::sql
