#pragma once

#include "core/FormatSettings.h"
#include "reports/page/ReportDocument.h"
#include "reports/render/TextRenderer.h"
#include "reports/run/TrptBase.h"
#include "support/GoldenFile.h"
#include "ui/HeadlessApp.h"

#include <sstream>
#include <string>

namespace corvane::testing {

// A small receivables company seen on June 30, 2018. Alpha (dollars, rate 1) has one invoice at
// each edge of the age columns, Beta (euros at 1.25) an invoice and a credit note, Gamma (pesos
// without a rate) one old invoice. Posted payments, one after the as-of date, one unposted, and
// an invoice paid in full, an invoice after the date and an unposted one complete the picture.
class ARReportTest : public UiCompanyTest {
protected:
    static constexpr int Dollars = 1, Euros = 2, Pesos = 3;
    static constexpr int Alpha = 1, Beta = 2, Gamma = 3, Delta = 4;

    void SetUp() override {
        UiCompanyTest::SetUp();
        saved_ = ProcessFormatSettings();
        ProcessFormatSettings() = FormatSettings{};
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", "AR Test Co"},
                              {"FiscalYear", 2018},
                              {"DefaultPeriodYYYY", 2018},
                              {"DefaultPeriodPP", 6},
                              {"AddressLine1", "10 Ledger Lane"},
                              {"AddressLine2", "Toronto, ON  M5V 1A1"},
                              {"Phone", "416-555-0100"}});
        AddRate(Dollars, "Dollars", 1.0);
        AddRate(Euros, "Euros", 1.25);
        AddRate(Pesos, "Pesos", 0.0);
        InsertRow("Salesman", {{"SalesmanID", 1}, {"FirstName", "Sam"}, {"LastName", "Seller"}});
        AddCustomer(Alpha, "C1", "Alpha Ltd", Dollars,
                    {{"Phone", "555-0101"},
                     {"AddressLine1", "1 Main St"},
                     {"City", "Springfield"},
                     {"StateProv", "IL"},
                     {"ZipCode", "62701"},
                     {"Country", "USA"},
                     {"SalesmanID", 1},
                     {"Contact", "Ann"},
                     {"EMail", "ann@alpha.example"},
                     {"CustomerMessage", "Thank you for your business."}});
        AddCustomer(Beta, "C2", "Beta GmbH", Euros,
                    {{"Phone", "49-555"},
                     {"AddressLine1", "Hauptstrasse 5"},
                     {"AddressLine2", "Hinterhof"},
                     {"City", "Berlin"},
                     {"ZipCode", "10115"},
                     {"Country", "Germany"}});
        AddCustomer(Gamma, "C3", "Gamma SA", Pesos, {});
        // Delta owes nothing and gets statements: it prints nowhere.
        AddCustomer(Delta, "C4", "Delta Inc", Dollars, {});

        // Alpha: ages 30, 31, 60, 61, 90 and 91 on June 30.
        AddInvoice(101, Alpha, "2018-05-31", 100);
        AddInvoice(102, Alpha, "2018-05-30", 200);
        AddInvoice(103, Alpha, "2018-05-01", 300);
        AddInvoice(104, Alpha, "2018-04-30", 400);
        AddInvoice(105, Alpha, "2018-04-01", 500, 0);        // paid on July 5, after the date
        AddInvoice(106, Alpha, "2018-03-31", 600, 450);      // 150 paid on June 15
        AddInvoice(107, Alpha, "2018-07-01", 999);           // after the as-of date
        AddInvoice(108, Alpha, "2018-06-01", 50, 50, false); // not posted
        AddInvoice(109, Alpha, "2018-06-01", 80, 0);         // settled on June 10
        AddPayment(1, Alpha, "2018-06-15", "CHQ1", {{106, 150}});
        AddPayment(2, Alpha, "2018-07-05", "CHQ2", {{105, 500}});
        AddPayment(3, Alpha, "2018-06-20", "CHQ3", {{104, 200}}, false); // not posted
        // Cash: 78 and a discount of 2.
        AddPayment(4, Alpha, "2018-06-10", "", {{109, 78, Money::FromWhole(2)}}, true, 1);
        // Beta: 80 euros at age 20 and a credit note of 20 at age 46.
        AddInvoice(201, Beta, "2018-06-10", 80);
        AddInvoice(202, Beta, "2018-05-15", -20);
        // Gamma: 1,000 pesos at age 180, taken into the domestic sums as they stand.
        AddInvoice(301, Gamma, "2018-01-01", 1000);
    }
    void TearDown() override {
        ProcessFormatSettings() = saved_;
        UiCompanyTest::TearDown();
    }

    void AddRate(int id, const std::string& name, double rate) {
        InsertRow("Currency", {{"CurrencyID", id},
                               {"CurrencyName", name},
                               {"ExchangeRate", rate},
                               {"ARGLAccountID", 1},
                               {"ARDiscGLAccountID", 1},
                               {"APGLAccountID", 1},
                               {"APDiscGLAccountID", 1}});
    }
    void AddCustomer(int id, const std::string& no, const std::string& name, int currency,
                     std::vector<std::pair<std::string, store::Value>> more) {
        std::vector<std::pair<std::string, store::Value>> row{{"CustomerID", id},
                                                              {"CustomerNo", no},
                                                              {"CustomerName", name},
                                                              {"CurrencyID", currency},
                                                              {"PrintStatement", true}};
        for (auto& field : more)
            row.push_back(std::move(field));
        InsertRow("Customer", row);
    }
    // Owing is what the invoice owes now, after every posted payment; -1 for the whole amount.
    void AddInvoice(int id, int customer, const std::string& date, std::int64_t whole,
                    std::int64_t owing = -1, bool posted = true) {
        const Date d = *Date::FromIso(date);
        InsertRow("ARInv", {{"ARInvoiceID", id},
                            {"CustomerID", customer},
                            {"InvoiceNo", std::to_string(id)},
                            {"InvoiceDate", d},
                            {"InvoiceAmount", Money::FromWhole(whole)},
                            {"Owing", Money::FromWhole(owing == -1 ? whole : owing)},
                            {"NetDays", 30},
                            {"GLYear", d.Year()},
                            {"GLPeriod", d.Month()},
                            {"Printed", true},
                            {"Posted", posted}});
    }
    struct Applied {
        int Invoice;
        std::int64_t Whole;
        Money Discount = Money();
        Money WriteOff = Money();
    };
    void AddPayment(int id, int customer, const std::string& date, const std::string& reference,
                    std::vector<Applied> lines, bool posted = true, int paidBy = 2) {
        const Date d = *Date::FromIso(date);
        Money total;
        for (const Applied& l : lines)
            total = total + Money::FromWhole(l.Whole);
        InsertRow("ARPmt", {{"PaymentID", id},
                            {"ChequeNo", reference},
                            {"CustomerID", customer},
                            {"BankID", 1},
                            {"GLYear", d.Year()},
                            {"GLPeriod", d.Month()},
                            {"PaymentDate", d},
                            {"ChequeAmount", total},
                            {"Posted", posted},
                            {"PaidBy", paidBy}});
        int seq = 1;
        for (const Applied& l : lines)
            InsertRow("ARInvPmt", {{"ARInvoiceID", l.Invoice},
                                   {"PaymentID", id},
                                   {"Seq", seq++},
                                   {"PaymentAmount", Money::FromWhole(l.Whole)},
                                   {"DiscTakenAmount", l.Discount},
                                   {"WriteOffAmount", l.WriteOff}});
    }

    static Date AsOf() { return Date::FromYmd(2018, 6, 30); }

    // The report laid out at a fixed time, as text pages.
    static std::string Pages(reports::TrptBase& report, int* pageCount = nullptr) {
        report.QuickReport.PrintedAt =
            reports::ReportTimestamp{Date::FromYmd(2018, 7, 2), 9, 15, 0};
        report.Open();
        reports::ReportDocument document;
        report.QuickReport.Prepare(document);
        if (pageCount) *pageCount = document.PageCount();
        return reports::TextRenderer(reports::TextRenderer::PageBreak::PageMarker).Render(document);
    }
    static void Golden(const std::string& name, const std::string& text) {
        CompareWithGolden("receivables", name, text);
    }
    // The first line holding every one of the words; empty when none does.
    static std::string LineWith(const std::string& text, std::initializer_list<std::string> words) {
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);) {
            bool all = true;
            for (const std::string& w : words)
                all = all && line.find(w) != std::string::npos;
            if (all) return line;
        }
        return {};
    }
    // The words of a line, split at runs of blanks of two or more (a text page pads its columns).
    static std::vector<std::string> Cells(std::string line) {
        // A rule that a text page draws across a row of amounts is no part of them.
        for (std::size_t at; (at = line.find("--")) != std::string::npos;)
            while (at < line.size() && line[at] == '-')
                line[at++] = ' ';
        std::vector<std::string> cells;
        std::string cell;
        int blanks = 0;
        for (char ch : line) {
            if (ch == ' ') {
                ++blanks;
                continue;
            }
            if (blanks >= 2 && !cell.empty()) {
                cells.push_back(cell);
                cell.clear();
            } else if (blanks == 1 && !cell.empty()) {
                cell += ' ';
            }
            blanks = 0;
            cell += ch;
        }
        if (!cell.empty()) cells.push_back(cell);
        return cells;
    }

    static std::string Cell(const std::string& line, std::size_t n) {
        std::vector<std::string> cells = Cells(line);
        return n < cells.size() ? cells[n] : "<none>";
    }
    static std::string LastCell(const std::string& line) {
        std::vector<std::string> cells = Cells(line);
        return cells.empty() ? "<none>" : cells.back();
    }

    FormatSettings saved_;
};

} // namespace corvane::testing
