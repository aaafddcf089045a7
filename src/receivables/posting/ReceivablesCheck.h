#pragma once

#include <string>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// Proves that receivables agree with themselves and with the ledger: each invoice owes its amount
// less what was paid, taken as discount and written off; each customer's balance is
// the sum of what its posted invoices still owe, and on each receivable control account the
// lines of the receivables' vouchers add up to what the posted invoices of the currencies using
// it still owe. Returns one line for each difference; none when all agree.
std::vector<std::string> CheckReceivables(store::Database& db);

} // namespace corvane::receivables
