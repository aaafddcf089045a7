#include "receivables/posting/PaymentReader.h"

#include "ledger/posting/RowColumns.h"
#include "store/Query.h"
#include "store/Value.h"

#include <map>
#include <string>

namespace corvane::receivables {

using ledger::IntAt;
using ledger::MoneyAt;
using ledger::OptionalInt;
using ledger::QueryRow;
using store::Value;

namespace {

// The run's selection: unposted payments of customers that exist.
constexpr const char* Selection = " FROM ARPmt p JOIN Customer c "
                                  "ON p.CustomerID = c.CustomerID WHERE p.Posted = FALSE";

struct CurrencyAccounts {
    double Rate = 0;
    std::optional<std::int64_t> AR, GainLoss, Discount;
};

} // namespace

std::int64_t PaymentReader::CountToPost(store::Database& db) {
    store::Query count(db, std::string("SELECT count(*)") + Selection);
    std::int64_t n = 0;
    count.ForEachRow([&](const QueryRow& row) { n = IntAt(row, 0); });
    return n;
}

std::vector<PaymentToPost> PaymentReader::ReadToPost() {
    std::map<std::int64_t, CurrencyAccounts> currencies;
    store::Query currency(db_, "SELECT CurrencyID, ExchangeRate, ARGLAccountID, "
                               "GainLossExchangeGLAccntID, ARDiscGLAccountID FROM Currency");
    currency.ForEachRow([&](const QueryRow& row) {
        currencies[IntAt(row, 0)] = {row[1].IsNull() ? 0 : row[1].Float(), OptionalInt(row, 2),
                                     OptionalInt(row, 3), OptionalInt(row, 4)};
    });
    std::map<std::int64_t, std::optional<std::int64_t>> banks;
    store::Query bank(db_, "SELECT BankID, BankGLAccountID FROM Bank");
    bank.ForEachRow([&](const QueryRow& row) { banks[IntAt(row, 0)] = OptionalInt(row, 1); });

    std::vector<PaymentToPost> payments;
    std::map<std::int64_t, std::size_t> byId;
    store::Query header(db_, std::string("SELECT p.PaymentID, p.ChequeNo, p.CustomerID, p.GLYear, "
                                         "p.GLPeriod, p.PaymentDate, p.ChequeAmount, p.PaidBy, "
                                         "p.BankID, c.CurrencyID") +
                                 Selection + " ORDER BY p.PaymentID");
    header.ForEachRow([&](const QueryRow& row) {
        PaymentToPost p;
        p.PaymentID = IntAt(row, 0);
        p.ChequeNo = ledger::TextAt(row, 1);
        p.CustomerID = IntAt(row, 2);
        p.GLYear = static_cast<int>(IntAt(row, 3));
        p.GLPeriod = static_cast<int>(IntAt(row, 4));
        if (!row[5].IsNull()) p.PaymentDate = row[5].Date();
        p.ChequeAmount = MoneyAt(row, 6);
        if (auto paidBy = OptionalInt(row, 7)) p.PaidBy = static_cast<int>(*paidBy);
        if (auto id = OptionalInt(row, 8)) {
            auto it = banks.find(*id);
            if (it != banks.end()) p.BankGLAccountID = it->second;
        }
        if (auto id = OptionalInt(row, 9)) {
            auto it = currencies.find(*id);
            if (it != currencies.end()) {
                p.StoredRate = it->second.Rate;
                p.ARGLAccountID = it->second.AR;
                p.GainLossGLAccountID = it->second.GainLoss;
                p.ARDiscGLAccountID = it->second.Discount;
            }
        }
        byId[p.PaymentID] = payments.size();
        payments.push_back(std::move(p));
    });
    store::Query lines(db_,
                       "SELECT l.PaymentID, l.Seq, l.ARInvoiceID, i.ARInvoiceID, l.PaymentAmount, "
                       "l.DiscTakenAmount, l.WriteOffAmount, l.WriteOffGLAccountID, "
                       "l.WriteOffSubAccount1ID, l.WriteOffSubAccount2ID, l.WriteOffSubAccount3ID "
                       "FROM ARInvPmt l JOIN ARPmt p ON p.PaymentID = l.PaymentID "
                       "LEFT JOIN ARInv i ON i.ARInvoiceID = l.ARInvoiceID "
                       "WHERE p.Posted = FALSE ORDER BY l.PaymentID, l.Seq");
    lines.ForEachRow([&](const QueryRow& row) {
        auto it = byId.find(IntAt(row, 0));
        if (it == byId.end()) return;
        PaymentLineToPost line;
        line.Seq = IntAt(row, 1);
        line.ARInvoiceID = IntAt(row, 2);
        line.InvoiceExists = !row[3].IsNull();
        line.PaymentAmount = MoneyAt(row, 4);
        line.DiscTakenAmount = MoneyAt(row, 5);
        line.WriteOffAmount = MoneyAt(row, 6);
        line.WriteOffAccount = ledger::ReadAccount(row, 7);
        payments[it->second].Lines.push_back(line);
    });
    return payments;
}

} // namespace corvane::receivables
