#include "ledger/accounts/AccountTypes.h"

#include <array>

namespace corvane::ledger {

namespace {
constexpr std::array<const char*, 5> kLabels{"Asset", "Liability", "Revenue", "Expense", "Equity"};
} // namespace

std::string AccountTypeLabel(long long type) {
    if (type < atAsset || type > atEquity) return {};
    return kLabels[static_cast<std::size_t>(type - 1)];
}

std::vector<std::string> AccountTypeLabels() {
    return {kLabels.begin(), kLabels.end()};
}

} // namespace corvane::ledger
