#include "company/sample/SampleCompany.h"

#include "company/sample/SampleInvoices.h"
#include "company/sample/SampleMasters.h"
#include "company/sample/SamplePayments.h"
#include "company/sample/SampleTimeBilling.h"
#include "company/sample/SampleVouchers.h"
#include "company/wizard/StarterCompany.h"
#include "core/Date.h"
#include "ledger/posting/PostingRun.h"
#include "store/BulkWriter.h"
#include "store/Database.h"
#include "store/Query.h"
#include "store/Table.h"

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
    store::BulkInsert accounts(db, "GLAccnt",
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
    store::BulkInsert(db, "Currency", columns).Add(values);
    store::BulkInsert(db, "Bank", {"BankID", "BankName", "BankGLAccountID", "CurrencyID"})
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
        store::BulkInsert writer(db, "GLAcSub" + std::to_string(level),
                                 {"SubAccountID", "SubAccount", "SubAccountName", "Suspended"});
        for (const Sub& s : subs)
            if (s.Level == level)
                writer.Add({Value(s.Id), Value(std::string(s.Code)), Value(std::string(s.Name)),
                            Value(false)});
    }
}

// Entry continues in the last quarter, so the default period is its first month.
void SetCompanyPeriods(store::Database& db, int fiscalYear) {
    store::Table company(db, "Company");
    company.Open();
    company.First();
    company.Edit();
    auto set = [&company](const char* field, const Value& value) {
        company.FieldByName(field).SetValue(value);
    };
    set("DefaultPeriodYYYY", Value(fiscalYear));
    set("DefaultPeriodPP", Value(kFirstUnpostedPeriod));
    set("WPeriodFromYYYY", Value(fiscalYear));
    set("WPeriodFromPP", Value(1));
    set("WPeriodToYYYY", Value(fiscalYear));
    set("WPeriodToPP", Value(12));
    set("EPeriodFromYYYY", Value(fiscalYear - 1));
    set("EPeriodFromPP", Value(1));
    set("EPeriodToYYYY", Value(fiscalYear + 1));
    set("EPeriodToPP", Value(12));
    set("Phone", Value(std::string("(613) 555-0142")));
    set("TaxNo", Value(std::string("81234 5678 RT0001")));
    company.Post();
}

std::int64_t CountRows(store::Database& db, const std::string& sql) {
    store::Query count(db, sql);
    count.Open();
    return count.Fields().front()->AsInteger();
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
    WriteSampleTimeBilling(db, shape.FiscalYear);
    WriteSamplePayments(db, shape.FiscalYear);

    SampleSummary summary;
    summary.Vouchers = static_cast<int>(CountRows(db, "SELECT COUNT(*) FROM JV"));
    summary.Unposted =
        static_cast<int>(CountRows(db, "SELECT COUNT(*) FROM JV WHERE Posted = FALSE"));
    summary.HistoryRows = CountRows(db, "SELECT COUNT(*) FROM GLHist");
    return summary;
}

} // namespace corvane::company
