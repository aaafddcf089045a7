#include "company/sample/SampleCompany.h"

#include "company/sample/RowWriter.h"
#include "company/sample/SampleInvoices.h"
#include "company/sample/SampleMasters.h"
#include "company/sample/SampleVouchers.h"
#include "company/wizard/StarterCompany.h"
#include "core/Date.h"
#include "ledger/posting/PostingRun.h"
#include "store/Database.h"
#include "store/sql/Connection.h"

#include <string>

namespace corvane::company {

namespace {

using store::Value;

constexpr int kForeignCurrencyId = 2;
constexpr int kForeignBankAccountId = 45;

StarterAnswers SampleAnswers(int fiscalYear) {
    StarterAnswers answers;
    answers.CompanyName = kSampleCompanyName;
    answers.FiscalYear = fiscalYear;
    answers.Address = "1450 Harbour Street\nSuite 210\nHalvern, ON  K7L 2N4";
    answers.CurrencyName = "Canadian Dollars";
    answers.BankName = "Operating Account";
    answers.TaxName = "GST";
    answers.TaxRate = 5.0;
    return answers;
}

// A US dollar account beside the home bank, and its currency with the six control accounts
// and a rate for each period of both years.
void WriteForeignCurrency(store::Database& db) {
    RowWriter accounts(db, "GLAccnt",
                       {"GLAccountID", "GLAccount", "AccountName", "AccountType",
                        "RetainedEarnings", "Suspended"});
    accounts.Add({Value(kForeignBankAccountId), Value(std::string("1007")),
                  Value(std::string("US Dollar Account")), Value(1), Value(false), Value(false)});

    std::vector<std::string> columns = {"CurrencyID",
                                        "CurrencyName",
                                        "ExchangeRate",
                                        "GainLossExchangeGLAccntID",
                                        "APGLAccountID",
                                        "APDiscGLAccountID",
                                        "ARGLAccountID",
                                        "ARDiscGLAccountID",
                                        "DfltWriteOffGLAccountID"};
    std::vector<Value> values = {Value(kForeignCurrencyId),
                                 Value(std::string("US Dollars")),
                                 Value(1.3125),
                                 Value(41),
                                 Value(3),
                                 Value(6),
                                 Value(2),
                                 Value(5),
                                 Value(5)};
    for (int p = 1; p <= 12; ++p) {
        columns.push_back("ExchangeRateTY" + std::to_string(p));
        values.emplace_back(1.2800 + 0.0025 * p);
        columns.push_back("ExchangeRateLY" + std::to_string(p));
        values.emplace_back(1.3400 - 0.0050 * p);
    }
    RowWriter(db, "Currency", columns).Add(values);
    RowWriter(db, "Bank", {"BankID", "BankName", "BankGLAccountID", "CurrencyID"})
        .Add({Value(2), Value(std::string("US Dollar Account")), Value(kForeignBankAccountId),
              Value(kForeignCurrencyId)});
}

void WriteSubAccounts(store::Database& db) {
    struct Sub {
        int Level;
        int Id;
        const char* Code;
        const char* Name;
    };
    static constexpr Sub subs[] = {
        {1, SampleDepartment::Consulting, "100", "Consulting"},
        {1, SampleDepartment::Retail, "200", "Retail"},
        {1, SampleDepartment::Administration, "300", "Administration"},
        {2, SampleRegion::East, "E", "East"},
        {2, SampleRegion::West, "W", "West"},
        {3, SampleProject::Website, "P01", "Website Rebuild"},
        {3, SampleProject::Warehouse, "P02", "Warehouse Fit-out"},
    };
    for (int level = 1; level <= 3; ++level) {
        RowWriter writer(db, "GLAcSub" + std::to_string(level),
                         {"SubAccountID", "SubAccount", "SubAccountName", "Suspended"});
        for (const Sub& s : subs)
            if (s.Level == level)
                writer.Add({Value(s.Id), Value(std::string(s.Code)), Value(std::string(s.Name)),
                            Value(false)});
    }
}

// Entry continues in the last quarter, so the default period is its first month.
void SetCompanyPeriods(store::Database& db, int fiscalYear) {
    store::Statement& s =
        db.Conn().Cached("UPDATE main.Company SET DefaultPeriodYYYY = ?, DefaultPeriodPP = ?, "
                         "WPeriodFromYYYY = ?, WPeriodFromPP = 1, WPeriodToYYYY = ?, "
                         "WPeriodToPP = 12, EPeriodFromYYYY = ?, EPeriodFromPP = 1, "
                         "EPeriodToYYYY = ?, EPeriodToPP = 12, Phone = ?, TaxNo = ?");
    store::StatementRun run(s);
    s.BindAll({Value(fiscalYear), Value(kFirstUnpostedPeriod), Value(fiscalYear), Value(fiscalYear),
               Value(fiscalYear - 1), Value(fiscalYear + 1), Value(std::string("(613) 555-0142")),
               Value(std::string("81234 5678 RT0001"))});
    s.Step();
}

std::int64_t CountRows(store::Database& db, const std::string& sql) {
    store::Statement& s = db.Conn().Cached(sql);
    store::StatementRun run(s);
    s.Step();
    return s.ColumnInt(0);
}

} // namespace

SampleSummary GenerateSampleCompany(store::Database& db, const SampleShape& shape) {
    CreateStarterCompany(db, SampleAnswers(shape.FiscalYear));
    {
        store::Transaction transaction(
            db, {"GLAccnt", "Currency", "Bank", "GLAcSub1", "GLAcSub2", "GLAcSub3", "Company"});
        WriteForeignCurrency(db);
        WriteSubAccounts(db);
        SetCompanyPeriods(db, shape.FiscalYear);
        transaction.Commit();
    }
    WriteSampleMasters(db);

    SampleVoucherWriter vouchers(db, shape);
    vouchers.WritePeriods(SampleVoucherWriter::Phase::ToBePosted);
    ledger::PostingRun(db).Run([](const std::string&) { return false; });
    vouchers.WritePeriods(SampleVoucherWriter::Phase::LeftUnposted);
    WriteSampleInvoices(db, shape.FiscalYear);

    SampleSummary summary;
    summary.Vouchers = static_cast<int>(CountRows(db, "SELECT count(*) FROM main.JV"));
    summary.Unposted =
        static_cast<int>(CountRows(db, "SELECT count(*) FROM main.JV WHERE Posted = 0"));
    summary.HistoryRows = CountRows(db, "SELECT count(*) FROM main.GLHist");
    return summary;
}

} // namespace corvane::company
