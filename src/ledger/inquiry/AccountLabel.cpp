#include "ledger/inquiry/AccountLabel.h"

namespace corvane::ledger {

std::string AccountNumberLabel(const AccountLabelParts& parts) {
    std::string label = parts.Number;
    // Only the levels up to the last one set are written; empty ones before it hold their place.
    int last = -1;
    for (int level = 0; level < 3; ++level)
        if (parts.SubNumbers[level]) last = level;
    for (int level = 0; level <= last; ++level)
        label += parts.SubNumbers[level] ? "-" + *parts.SubNumbers[level] : std::string("- ");
    return label;
}

std::string AccountNameLabel(const AccountLabelParts& parts) {
    std::string label = parts.Name;
    for (const auto& name : parts.SubNames)
        if (name) label += " - " + *name;
    return label;
}

} // namespace corvane::ledger
