#pragma once

#include "ui/Edit.h"
#include "ui/FieldDataLink.h"

#include <cstdint>
#include <string>

namespace corvane::store {
class Database;
class DataSet;
} // namespace corvane::store

namespace corvane::ledger {

// What an account box shows of its account: the number, or the name.
enum class AccountBoxShows { Number, Name };

// An edit that shows an account but stands for an ...GLAccountID field of a record. The user
// never types the account: a printable key opens the account search with that key as the start
// of its find text (Ctrl+Enter opens it too), Esc puts the stored account back, and the chosen
// account's id is written to the field, whose validation refuses an id that is no account.
class AccountBox {
public:
    AccountBox(ui::Edit& box, store::DataSet& dataSet, std::string idField, store::Database& db,
               AccountBoxShows shows = AccountBoxShows::Number);
    AccountBox(const AccountBox&) = delete;
    AccountBox& operator=(const AccountBox&) = delete;

    // Opens the search as a click on the box's button does, firstChar (0 for none) starting its
    // find text; true when an account was chosen.
    bool Pick(char firstChar = 0);
    // Shows the stored account again.
    void ShowStored();

    // The save-time test of a form with this box: a stored id must still be an account.
    void CheckStillExists();

private:
    void KeyPress(char& ch);

    ui::Edit& box_;
    store::DataSet& dataSet_;
    std::string idField_;
    store::Database& db_;
    AccountBoxShows shows_;
    ui::FieldDataLink link_;
};

// Whether glAccountId is a row of GLAccnt.
bool AccountExists(store::Database& db, std::int64_t glAccountId);

} // namespace corvane::ledger
