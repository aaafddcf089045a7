#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// The hidden key and the number on screen of an invoice being made.
struct InvoiceKeys {
    std::int64_t ARInvoiceID = 0;
    std::string InvoiceNo;
};

// How long the draw waits for the control table that another workstation holds.
struct DrawPatience {
    int Tries = 100;
    int PauseMs = 1000;
};

// Takes the next id and number from the one row of ARInvCtl through the store's one number draw,
// which holds the table exclusively for the moment of the draw and writes both counters on at
// once. A number outside 1..10000000 starts the series
// again at 1. After each round of tries that finds the table held, askRetry hears the question;
// false gives up and returns nothing. A number once drawn is never given back.
std::optional<InvoiceKeys> DrawInvoiceKeys(store::Database& db,
                                           const std::function<bool(const std::string&)>& askRetry,
                                           DrawPatience patience = {});

} // namespace corvane::receivables
