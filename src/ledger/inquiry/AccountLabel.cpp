#include "ledger/inquiry/AccountLabel.h"

#include "store/DataSet.h"

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

namespace {
std::optional<std::string> TextOrNone(const store::Field& field) {
    if (field.IsNull()) return std::nullopt;
    return field.AsString();
}
} // namespace

void SetJoinedAccountLabels(store::DataSet& row) {
    AccountLabelParts parts;
    parts.Number = row.FieldByName("GLAccount").AsString();
    parts.Name = row.FieldByName("AccountName").AsString();
    for (std::size_t level = 0; level < 3; ++level) {
        std::string prefix = "SubAccount" + std::to_string(level + 1);
        parts.SubNumbers[level] = TextOrNone(row.FieldByName(prefix));
        parts.SubNames[level] = TextOrNone(row.FieldByName(prefix + "Name"));
    }
    row.FieldByName("AccountNo").SetAsString(AccountNumberLabel(parts));
    row.FieldByName("AccountNameLabel").SetAsString(AccountNameLabel(parts));
}

} // namespace corvane::ledger
