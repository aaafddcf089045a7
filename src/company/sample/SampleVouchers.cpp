#include "company/sample/SampleVouchers.h"

#include "core/Date.h"
#include "ledger/domain/Voucher.h"
#include "ledger/domain/VoucherNumbering.h"
#include "store/Database.h"

#include <stdexcept>

#include <algorithm>

namespace corvane::company {

namespace {

using store::Value;

// The wizard's chart, by id, and the sample's own US dollar account.
enum Account : int {
    Bank = 1,
    Receivable = 2,
    Payable = 3,
    Sales = 4,
    Equipment = 9,
    AccumulatedDepreciation = 10,
    SalesTax = 12,
    Salary = 15,
    AutoSupplies = 17,
    OfficeSupplies = 18,
    Courier = 19,
    Telephone = 20,
    BankCharges = 22,
    Meals = 23,
    Travelling = 24,
    ProfessionalFees = 25,
    Rent = 32,
    Electricity = 34,
    Insurance = 35,
    Depreciation = 38,
    ForeignExchange = 41,
    Freight = 44,
    UsDollarBank = 45,
};

constexpr int kPeriodsPerYear = 12;
constexpr int kMonthlyFixed = 4;

SampleLine Line(int account, Money amount, std::optional<int> department = {},
                std::optional<int> region = {}, std::optional<int> project = {}) {
    SampleLine line;
    line.Account = account;
    line.Sub[0] = department;
    line.Sub[1] = region;
    line.Sub[2] = project;
    line.Amount = amount;
    return line;
}

Money Tax(Money net) {
    return net.PercentRounded(5.0);
}

Value Optional(const std::optional<int>& id) {
    return id ? Value(*id) : Value();
}

} // namespace

SampleVoucherWriter::SampleVoucherWriter(store::Database& db, const SampleShape& shape)
    : db_(db), jv_(db, "JV",
                   {"JVID", "GLYear", "GLPeriod", "JVNumber", "Source", "TransType", "TransDate",
                    "TransDescription", "JVAmount", "Posted", "AutoReverse"}),
      lines_(db, "JVDet",
             {"JVID", "Seq", "GLAccountID", "SubAccount1ID", "SubAccount2ID", "SubAccount3ID",
              "GLAmount"}),
      shape_(shape), engine_(shape.Seed) {}

// Raw draws from the engine: the standard distributions differ between libraries, and the
// sample must be the same everywhere.
Money SampleVoucherWriter::Cents(int low, int high) {
    const auto span = static_cast<std::uint32_t>((high - low) * 100 + 1);
    return Money::FromCents(static_cast<std::int64_t>(low) * 100 + engine_() % span);
}

SampleVoucher SampleVoucherWriter::DayToDay(int month) {
    const int region = engine_() % 2 ? SampleRegion::East : SampleRegion::West;
    switch (turn_++ % 10) {
    case 0: {
        const Money net = Cents(400, 3800);
        return {"Cash sales, counter",
                {Line(Bank, net + Tax(net)), Line(Sales, -net, SampleDepartment::Retail, region),
                 Line(SalesTax, -Tax(net))}};
    }
    case 1: {
        const Money net = Cents(1500, 9000);
        return {"Consulting fees billed",
                {Line(Receivable, net + Tax(net)),
                 Line(Sales, -net, SampleDepartment::Consulting, region),
                 Line(SalesTax, -Tax(net))}};
    }
    case 2: {
        const Money paid = Cents(1000, 7000);
        return {"Customer payments deposited", {Line(Bank, paid), Line(Receivable, -paid)}};
    }
    case 3: {
        const Money supplies = Cents(60, 900);
        return {"Office supplies on account",
                {Line(OfficeSupplies, supplies, SampleDepartment::Administration),
                 Line(Payable, -supplies)}};
    }
    case 4: {
        const Money paid = Cents(300, 4000);
        return {"Payment to vendors", {Line(Payable, paid), Line(Bank, -paid)}};
    }
    case 5: {
        const Money phone = Cents(90, 260);
        const Money power = Cents(140, month <= 3 || month >= 11 ? 620 : 380);
        return {"Telephone and electricity",
                {Line(Telephone, phone, SampleDepartment::Administration),
                 Line(Electricity, power, SampleDepartment::Administration),
                 Line(Bank, -(phone + power))}};
    }
    case 6: {
        const Money travel = Cents(150, 1400);
        const Money meals = Cents(25, 240);
        const int project = engine_() % 2 ? SampleProject::Website : SampleProject::Warehouse;
        return {"Travel and meals, client visits",
                {Line(Travelling, travel, SampleDepartment::Consulting, region, project),
                 Line(Meals, meals, SampleDepartment::Consulting, region),
                 Line(Bank, -(travel + meals))}};
    }
    case 7: {
        const Money freight = Cents(45, 480);
        return {"Freight and courier on purchases",
                {Line(Freight, freight, {}, {}, SampleProject::Warehouse),
                 Line(Courier, Cents(12, 60)), Line(Payable, Money())}};
    }
    case 8: {
        const Money fees = Cents(600, 2500);
        // Accrued at month end and reversed at the start of the next, when the bill comes in.
        return {
            "Accrued professional fees",
            {Line(ProfessionalFees, fees, SampleDepartment::Administration), Line(Payable, -fees)},
            true};
    }
    default: {
        const Money charges = Cents(8, 55);
        const Money fuel = Cents(40, 210);
        return {"Bank charges and vehicle fuel",
                {Line(BankCharges, charges), Line(AutoSupplies, fuel, SampleDepartment::Retail),
                 Line(Bank, -(charges + fuel))}};
    }
    }
}

std::vector<SampleVoucher> SampleVoucherWriter::MonthVouchers(int month, int count) {
    std::vector<SampleVoucher> list;
    const Money rent = Money::FromWhole(2400);
    list.push_back(
        {"Monthly rent", {Line(Rent, rent, SampleDepartment::Administration), Line(Bank, -rent)}});
    const Money consulting = Cents(6200, 6600);
    const Money retail = Cents(3100, 3400);
    const Money office = Cents(2800, 2900);
    list.push_back({"Payroll",
                    {Line(Salary, consulting, SampleDepartment::Consulting),
                     Line(Salary, retail, SampleDepartment::Retail),
                     Line(Salary, office, SampleDepartment::Administration),
                     Line(Bank, -(consulting + retail + office))}});
    const Money depreciation = Money::FromCents(41667);
    list.push_back(
        {"Depreciation of equipment",
         {Line(Depreciation, depreciation), Line(AccumulatedDepreciation, -depreciation)}});
    // The US dollar account is held at the month's rate; the difference goes to exchange.
    Money change = Cents(0, 380);
    if (engine_() % 2) change = -change;
    list.push_back({"To record mth-end currency conversion",
                    {Line(UsDollarBank, change), Line(ForeignExchange, -change)}});
    if (month == 1) {
        const Money insurance = Cents(1800, 2100);
        list.push_back(
            {"Annual insurance premium", {Line(Insurance, insurance), Line(Bank, -insurance)}});
    }
    if (month == 6) {
        const Money computers = Cents(3500, 6000);
        list.push_back({"New computers", {Line(Equipment, computers), Line(Payable, -computers)}});
    }
    while (static_cast<int>(list.size()) < count) {
        SampleVoucher v = DayToDay(month);
        // A line left at zero balances the voucher: the freight and courier go on account.
        Money sum;
        for (const auto& l : v.Lines)
            sum += l.Amount;
        if (sum != Money()) v.Lines.back().Amount -= sum;
        list.push_back(std::move(v));
    }
    return list;
}

void SampleVoucherWriter::Write(const SampleVoucher& voucher, int year, int period) {
    // Each voucher passes the checks a user's would, as of the year it is dated in.
    ledger::VoucherFacts facts;
    facts.VoucherPeriod = {year, period};
    facts.Description = voucher.Description;
    facts.HasLines = !voucher.Lines.empty();
    for (const auto& l : voucher.Lines)
        (l.Amount > Money() ? facts.Debits : facts.Credits) += l.Amount;
    facts.Amount = facts.Debits;
    ledger::CompanyPeriods then;
    then.FiscalYear = year;
    const ledger::VoucherVerdict verdict = ledger::ValidateVoucher(then, facts);
    if (!verdict.Ok())
        throw std::logic_error("Sample voucher '" + voucher.Description + "': " + verdict.Message);
    const Money debits = facts.Debits;
    const int last = Date::DaysInMonth(year, period);
    const int day = 1 + static_cast<int>(engine_() % static_cast<std::uint32_t>(last));
    jv_.Add({Value(nextId_), Value(year), Value(period), Value(nextNumber_),
             Value(std::string("GL")), Value(std::string("JV")),
             Value(Date::FromYmd(year, period, day)), Value(voucher.Description), Value(debits),
             Value(false), Value(voucher.AutoReverse)});
    int seq = 1;
    for (const auto& l : voucher.Lines)
        lines_.Add({Value(nextId_), Value(seq++), Value(l.Account), Optional(l.Sub[0]),
                    Optional(l.Sub[1]), Optional(l.Sub[2]), Value(l.Amount)});
    ++nextId_;
    ++nextNumber_;
}

void SampleVoucherWriter::WritePeriods(Phase phase) {
    store::Transaction transaction(db_, {"JV", "JVDet", "JVCtl"});
    // The vouchers take the ids and numbers the control row offers, and the row is raised past
    // them at the end, in the same transaction: nobody else draws while it holds the write lock.
    const auto first = ledger::TakeVoucherKeys(db_, {}, 0);
    if (!first) throw std::runtime_error("The JV control table is in use");
    nextId_ = first->JVID;
    nextNumber_ = first->JVNumber;
    const int periods = 2 * kPeriodsPerYear;
    const int perMonth = std::max(kMonthlyFixed, shape_.Vouchers / periods);
    for (int slot = 0; slot < periods; ++slot) {
        const int year = shape_.FiscalYear - 1 + slot / kPeriodsPerYear;
        const int period = 1 + slot % kPeriodsPerYear;
        const bool unposted = year == shape_.FiscalYear && period >= kFirstUnpostedPeriod;
        if (unposted != (phase == Phase::LeftUnposted)) continue;
        for (const auto& voucher : MonthVouchers(period, perMonth))
            Write(voucher, year, period);
    }
    if (!ledger::TakeVoucherKeys(db_, {}, nextId_ - first->JVID))
        throw std::runtime_error("The JV control table is in use");
    transaction.Commit();
}

} // namespace corvane::company
