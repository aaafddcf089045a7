#pragma once

#include "core/Money.h"
#include "store/Database.h"
#include "store/Value.h"

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::ledger {

// One line of a voucher import file: the numbers as the user knows them, the amount signed
// (credits negative). A blank subaccount stays empty.
struct JVImportRow {
    int Line = 0; // of the file, from 1
    std::string Account;
    Money Amount;
    std::array<std::string, 3> SubAccounts;
};

// A row of the file with the ids its numbers stand for in the company; an id is null when the
// number is blank or names nothing.
struct JVImportMatch {
    JVImportRow Row;
    store::Value GLAccountID;
    std::array<store::Value, 3> SubAccountIDs;
};

// Reads the text of an import file: per line account number, amount, then up to three
// subaccount numbers, separated by commas (quotes allowed). A first line whose amount holds no
// digit is a header. A bad amount or a line without account and amount raises an Exception
// naming the line, so that no part of a faulty file is taken.
std::vector<JVImportRow> ParseJVImport(std::string_view text);
std::vector<JVImportRow> ReadJVImportFile(const std::filesystem::path& path);

// Puts the rows in a scratch table and joins it to the accounts and the three subaccount lists
// by number; the result keeps the order of the file.
std::vector<JVImportMatch> MatchJVImport(store::Database& db, const std::vector<JVImportRow>& rows);

// The question asked for a number that names nothing: whether to go on without its row. kind is
// "Account" or "SubAccount1" to "SubAccount3".
std::string MissingNumberQuestion(std::string_view kind, std::string_view number);

} // namespace corvane::ledger
