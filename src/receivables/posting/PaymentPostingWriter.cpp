#include "receivables/posting/PaymentPostingWriter.h"

#include "ledger/posting/StatementColumns.h"
#include "store/Database.h"
#include "store/Value.h"
#include "store/sql/Connection.h"

namespace corvane::receivables {

using ledger::MoneyAt;
using store::Statement;
using store::StatementRun;
using store::Value;

void PaymentPostingWriter::MarkPosted(std::int64_t paymentId) {
    Statement& s = db_.Conn().Cached("UPDATE main.ARPmt SET Posted = ? WHERE PaymentID = ?");
    StatementRun run(s);
    s.BindAll({Value(true), Value(paymentId)});
    s.Step();
}

void PaymentPostingWriter::Settle(const InvoiceSettlement& line) {
    Money amount, paid, discount, writeOff;
    {
        Statement& s = db_.Conn().Cached("SELECT InvoiceAmount, PaidAmount, DiscTakenAmount, "
                                         "WriteOffAmount FROM main.ARInv WHERE ARInvoiceID = ?");
        StatementRun run(s);
        s.Bind(1, Value(line.ARInvoiceID));
        if (!s.Step()) return;
        amount = MoneyAt(s, 0);
        paid = MoneyAt(s, 1) + line.Paid;
        discount = MoneyAt(s, 2) + line.Discount;
        writeOff = MoneyAt(s, 3) + line.WriteOff;
    }
    // The sums are the program's own, in whole ten-thousandths; the engine only stores them.
    Statement& s = db_.Conn().Cached(
        "UPDATE main.ARInv SET PaidAmount = ?, DiscTakenAmount = ?, WriteOffAmount = ?, "
        "Owing = ? WHERE ARInvoiceID = ?");
    StatementRun run(s);
    s.BindAll({Value(paid), Value(discount), Value(writeOff),
               Value(amount - paid - discount - writeOff), Value(line.ARInvoiceID)});
    s.Step();
}

} // namespace corvane::receivables
