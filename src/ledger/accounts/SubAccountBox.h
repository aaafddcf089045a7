#pragma once

#include "ui/Edit.h"
#include "ui/FieldDataLink.h"

#include <string>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::ledger {

// An edit that shows a subaccount's number but stands for a ...SubAccountNID field of a record.
// As with the account box, the number is never typed: a printable key opens the subaccount
// search of the box's level with that key as the start of its find text (Ctrl+Enter opens it
// too), Esc shows the stored one again, and Del or Backspace clears it, a subaccount being
// optional. A suspended subaccount is refused when chosen; one deleted after it was chosen is
// the save's to refuse.
class SubAccountBox {
public:
    SubAccountBox(ui::Edit& box, store::DataSet& dataSet, std::string idField, int level,
                  store::Database& db);
    SubAccountBox(const SubAccountBox&) = delete;
    SubAccountBox& operator=(const SubAccountBox&) = delete;

    // Opens the search, firstChar (0 for none) starting its find text; true when a subaccount
    // was chosen.
    bool Pick(char firstChar = 0);
    void ShowStored();

private:
    void KeyPress(char& ch);
    void Clear();

    ui::Edit& box_;
    store::DataSet& dataSet_;
    std::string idField_;
    int level_;
    store::Database& db_;
    ui::FieldDataLink link_;
};

} // namespace corvane::ledger
