#include "company/sample/SampleInvoices.h"

#include "receivables/invoices/InvoiceDocument.h"
#include "receivables/posting/InvoicePostingRun.h"
#include "receivables/taxes/TaxLookUp.h"
#include "store/Query.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane::company {

using namespace receivables;

namespace {

struct Buyer {
    std::int64_t CustomerID = 0;
    std::int64_t CurrencyID = 0;
};

struct Stock {
    std::int64_t ItemID = 0;
    Money Price;
    std::string TaxCodes;
};

bool GiveUp(const std::string&) {
    return false;
}

std::vector<Buyer> ActiveCustomers(store::Database& db) {
    store::Query q(db,
                   "SELECT CustomerID, CurrencyID, Suspended FROM Customer ORDER BY CustomerID");
    q.Open();
    std::vector<Buyer> buyers;
    for (q.First(); !q.Eof(); q.Next())
        if (!q.FieldByName("Suspended").AsBoolean())
            buyers.push_back(
                {q.FieldByName("CustomerID").AsInteger(), q.FieldByName("CurrencyID").AsInteger()});
    return buyers;
}

std::vector<Stock> Items(store::Database& db) {
    store::Query q(db, "SELECT ItemID, UnitPrice, TaxCodes FROM Item ORDER BY ItemID");
    q.Open();
    std::vector<Stock> items;
    // Items without a price of their own (freight, labour) are priced on the line; the sample
    // sells what has a price.
    for (q.First(); !q.Eof(); q.Next())
        if (!q.FieldByName("UnitPrice").IsNull())
            items.push_back({q.FieldByName("ItemID").AsInteger(),
                             q.FieldByName("UnitPrice").AsMoney(),
                             q.FieldByName("TaxCodes").AsString()});
    return items;
}

// One value of the first row of a query by one id; nothing when there is no row.
std::optional<store::Value> First(store::Database& db, const std::string& sql, std::int64_t id) {
    store::Query q(db, sql);
    q.ParamByName("ID").SetAsInteger(id);
    q.Open();
    if (q.IsEmpty()) return std::nullopt;
    return q.Fields().front()->AsValue();
}

} // namespace

void WriteSampleInvoices(store::Database& db, int fiscalYear) {
    const std::vector<Buyer> buyers = ActiveCustomers(db);
    const std::vector<Stock> items = Items(db);
    if (buyers.empty() || items.empty()) return;
    store::Query warehouse(db, "SELECT WarehouseID FROM Warehse ORDER BY WarehouseID");
    warehouse.Open();
    constexpr int Invoices = 12;
    constexpr int CreditNote = 5;
    for (int i = 0; i < Invoices; ++i) {
        const Buyer& buyer = buyers[static_cast<std::size_t>(i) % buyers.size()];
        const auto rate =
            First(db, "SELECT ExchangeRate FROM Currency WHERE CurrencyID = :ID", buyer.CurrencyID);
        const double exchange = rate && !rate->IsNull() ? rate->Float() : 0;
        InvoiceHeader h;
        h.CustomerID = buyer.CustomerID;
        h.CurrencyID = buyer.CurrencyID;
        h.WarehouseID = warehouse.FieldByName("WarehouseID").AsInteger();
        h.GLYear = fiscalYear;
        h.GLPeriod = 10 + i % 3;
        h.InvoiceDate = Date::FromYmd(fiscalYear, h.GLPeriod, 3 + 2 * i);
        h.Description = i == CreditNote ? "Returned goods" : "Order " + std::to_string(7100 + i);
        h.Taxes = TaxesForCustomer(db, buyer.CustomerID);
        // The last few are still being worked on: not printed, so not posted.
        h.Printed = i < 9;
        std::vector<InvoiceLine> lines;
        for (int k = 0; k < 2 + i % 2; ++k) {
            const Stock& item = items[static_cast<std::size_t>(i + 2 * k) % items.size()];
            const double qty = (i == CreditNote ? -1.0 : 1.0) * (1 + (i + k) % 4);
            // A customer abroad is quoted the item's price in its own currency.
            const Money price =
                RateConvertsPrices(exchange) ? PriceInCurrency(item.Price, exchange) : item.Price;
            lines.push_back({qty, item.ItemID, price,
                             k == 1 ? std::optional<double>(5.0) : std::nullopt, item.TaxCodes, "",
                             std::nullopt, std::nullopt});
        }
        // Two customers pay at the counter, into a bank of their own currency.
        if (i == 2 || i == 7) {
            const auto bank =
                First(db, "SELECT BankID FROM Bank WHERE CurrencyID = :ID", buyer.CurrencyID);
            if (bank && !bank->IsNull()) {
                h.Payment.BankID = bank->Int();
                h.Payment.PaidBy = i == 2 ? 4 : 2;
                h.Payment.Reference = i == 2 ? "" : "1045";
            }
        }
        const InvoiceKeys keys = CreateInvoice(db, h, lines, GiveUp);
        if (h.Payment.BankID) {
            // The amount is known once the invoice is: the whole of it, or half.
            InvoiceHeader saved = *ReadInvoice(db, keys.ARInvoiceID);
            saved.Payment = h.Payment;
            saved.Payment.Amount =
                i == 2 ? saved.InvoiceAmount : Money::FromCents(saved.InvoiceAmount.Units() / 200);
            saved.PaidAmount = saved.Payment.Amount;
            SaveInvoice(db, saved);
        }
    }
    InvoicePostingRun(db).Run(GiveUp);
}

} // namespace corvane::company
