#pragma once

#include "receivables/posting/PaymentPosting.h"

#include <cstdint>
#include <vector>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// Reads the payments a posting run takes: every unposted payment of a customer that exists, in
// order of id, each with its lines in order of Seq and the accounts of its currency and bank as
// they stand now.
class PaymentReader {
public:
    explicit PaymentReader(store::Database& db) : db_(db) {}

    static std::int64_t CountToPost(store::Database& db);
    std::vector<PaymentToPost> ReadToPost();

private:
    store::Database& db_;
};

} // namespace corvane::receivables
