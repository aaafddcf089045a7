#include "receivables/posting/PaymentReader.h"

#include "ledger/posting/StatementColumns.h"
#include "store/Database.h"
#include "store/Value.h"
#include "store/sql/Connection.h"

#include <map>
#include <string>

namespace corvane::receivables {

using ledger::MoneyAt;
using ledger::OptionalInt;
using store::Statement;
using store::StatementRun;
using store::Value;

namespace {

// The run's selection: unposted payments of customers that exist.
constexpr const char* Selection = " FROM main.ARPmt p JOIN main.Customer c "
                                  "ON p.CustomerID = c.CustomerID WHERE p.Posted = ?";

struct CurrencyAccounts {
    double Rate = 0;
    std::optional<std::int64_t> AR, GainLoss, Discount;
};

} // namespace

std::int64_t PaymentReader::CountToPost(store::Database& db) {
    Statement& s = db.Conn().Cached(std::string("SELECT count(*)") + Selection);
    StatementRun run(s);
    s.Bind(1, Value(false));
    s.Step();
    return s.ColumnInt(0);
}

std::vector<PaymentToPost> PaymentReader::ReadToPost() {
    std::map<std::int64_t, CurrencyAccounts> currencies;
    {
        Statement& s = db_.Conn().Cached(
            "SELECT CurrencyID, ExchangeRate, ARGLAccountID, GainLossExchangeGLAccntID, "
            "ARDiscGLAccountID FROM main.Currency");
        StatementRun run(s);
        while (s.Step()) {
            Value rate = s.ColumnValue(1, store::FieldType::Float);
            currencies[s.ColumnInt(0)] = {rate.IsNull() ? 0 : rate.Float(), OptionalInt(s, 2),
                                          OptionalInt(s, 3), OptionalInt(s, 4)};
        }
    }
    std::map<std::int64_t, std::optional<std::int64_t>> banks;
    {
        Statement& s = db_.Conn().Cached("SELECT BankID, BankGLAccountID FROM main.Bank");
        StatementRun run(s);
        while (s.Step())
            banks[s.ColumnInt(0)] = OptionalInt(s, 1);
    }

    std::vector<PaymentToPost> payments;
    std::map<std::int64_t, std::size_t> byId;
    {
        Statement& s = db_.Conn().Cached(
            std::string("SELECT p.PaymentID, p.ChequeNo, p.CustomerID, p.GLYear, p.GLPeriod, "
                        "p.PaymentDate, p.ChequeAmount, p.PaidBy, p.BankID, c.CurrencyID") +
            Selection + " ORDER BY p.PaymentID");
        StatementRun run(s);
        s.Bind(1, Value(false));
        while (s.Step()) {
            PaymentToPost p;
            p.PaymentID = s.ColumnInt(0);
            Value no = s.ColumnValue(1, store::FieldType::String);
            p.ChequeNo = no.IsNull() ? std::string() : no.Str();
            p.CustomerID = s.ColumnInt(2);
            p.GLYear = static_cast<int>(OptionalInt(s, 3).value_or(0));
            p.GLPeriod = static_cast<int>(OptionalInt(s, 4).value_or(0));
            Value date = s.ColumnValue(5, store::FieldType::Date);
            if (!date.IsNull()) p.PaymentDate = date.Date();
            p.ChequeAmount = MoneyAt(s, 6);
            if (auto paidBy = OptionalInt(s, 7)) p.PaidBy = static_cast<int>(*paidBy);
            if (auto bank = OptionalInt(s, 8)) {
                auto it = banks.find(*bank);
                if (it != banks.end()) p.BankGLAccountID = it->second;
            }
            if (auto currency = OptionalInt(s, 9)) {
                auto it = currencies.find(*currency);
                if (it != currencies.end()) {
                    p.StoredRate = it->second.Rate;
                    p.ARGLAccountID = it->second.AR;
                    p.GainLossGLAccountID = it->second.GainLoss;
                    p.ARDiscGLAccountID = it->second.Discount;
                }
            }
            byId[p.PaymentID] = payments.size();
            payments.push_back(std::move(p));
        }
    }
    Statement& s = db_.Conn().Cached(
        "SELECT l.PaymentID, l.Seq, l.ARInvoiceID, i.ARInvoiceID IS NOT NULL, l.PaymentAmount, "
        "l.DiscTakenAmount, l.WriteOffAmount, l.WriteOffGLAccountID, l.WriteOffSubAccount1ID, "
        "l.WriteOffSubAccount2ID, l.WriteOffSubAccount3ID FROM main.ARInvPmt l "
        "JOIN main.ARPmt p ON p.PaymentID = l.PaymentID "
        "LEFT JOIN main.ARInv i ON i.ARInvoiceID = l.ARInvoiceID "
        "WHERE p.Posted = ? ORDER BY l.PaymentID, l.Seq");
    StatementRun run(s);
    s.Bind(1, Value(false));
    while (s.Step()) {
        auto it = byId.find(s.ColumnInt(0));
        if (it == byId.end()) continue;
        PaymentLineToPost line;
        line.Seq = OptionalInt(s, 1).value_or(0);
        line.ARInvoiceID = s.ColumnInt(2);
        line.InvoiceExists = s.ColumnInt(3) != 0;
        line.PaymentAmount = MoneyAt(s, 4);
        line.DiscTakenAmount = MoneyAt(s, 5);
        line.WriteOffAmount = MoneyAt(s, 6);
        line.WriteOffAccount = ledger::ReadAccount(s, 7);
        payments[it->second].Lines.push_back(line);
    }
    return payments;
}

} // namespace corvane::receivables
