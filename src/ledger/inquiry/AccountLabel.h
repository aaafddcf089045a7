#pragma once

#include <array>
#include <optional>
#include <string>

namespace corvane::store {
class DataSet;
}

namespace corvane::ledger {

// An account with the subaccounts of a totals or history row; a level that is not set is empty.
struct AccountLabelParts {
    std::string Number;
    std::string Name;
    std::array<std::optional<std::string>, 3> SubNumbers;
    std::array<std::optional<std::string>, 3> SubNames;
};

// "5100-EAST": the account number, then "-" and each level's number. An empty level ahead of a
// set one stands as "- ", so that every level keeps its place: "5100- -NORTH".
std::string AccountNumberLabel(const AccountLabelParts& parts);

// "Rent - East": the account name, then " - " and the name of each level that is set.
std::string AccountNameLabel(const AccountLabelParts& parts);

// Sets "AccountNo" and "AccountNameLabel" of a row that joins the account (GLAccount,
// AccountName) to its subaccounts (SubAccount1, SubAccount1Name, ... SubAccount3Name).
void SetJoinedAccountLabels(store::DataSet& row);

} // namespace corvane::ledger
