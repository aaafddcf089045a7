// Another workstation adding accounts, level 1 subaccounts and currencies through their entry
// forms, headless. It opens the company, prints "ready", waits until the start file exists (so
// that two of them add at the same moment), saves <count> of each, printing the new row's id as
// "<table> <id>", then "done". A refused save prints "error: <message>" and exits 2.
//
//   banking_account_adder <company folder> <start file> <tag> <count>

#include "banking/currencies/TfrmCurrency.h"
#include "ledger/accounts/TfrmGLAccount.h"
#include "ledger/accounts/TfrmGLAccountSub.h"
#include "store/Database.h"
#include "store/Session.h"
#include "support/WorkstationStart.h"
#include "ui/Application.h"
#include "ui/HeadlessDesktop.h"
#include "ui/HeadlessDialogs.h"
#include "ui/HeadlessHost.h"

#include <chrono>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>

using namespace corvane;

namespace {

// Saves the form's new row as OK does, and tells its id.
void Save(shell::EntryForm& form, const char* table, const char* idField) {
    form.EntryTable.Post();
    std::cout << table << " " << form.EntryTable.FieldByName(idField).AsInteger() << "\n";
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "usage: banking_account_adder <folder> <start file> <tag> <count>\n";
        return 64;
    }
    const std::string tag = argv[3];
    const int count = std::stoi(argv[4]);
    try {
        store::Session session;
        store::Database db(session);
        db.SetDirectory(argv[1]);
        db.Open();
        ui::HeadlessHost host;
        ui::HeadlessDialogs dialogs;
        ui::HeadlessDesktop desktop;
        ui::Application app{host, dialogs, desktop};
        ledger::TfrmGLAccount account(app, db);
        ledger::TfrmGLAccountSub sub(app, db);
        banking::TfrmCurrency currency(app, db);
        corvane::tests::AwaitStart(argv[2]);
        for (int i = 0; i < count; ++i) {
            const std::string name = tag + std::to_string(i);
            account.EntryTable.Insert();
            account.EntryTable.FieldByName("GLAccount").SetAsString(name);
            account.EntryTable.FieldByName("AccountName").SetAsString("Account " + name);
            account.EntryTable.FieldByName("AccountType").SetAsInteger(1);
            Save(account, "GLAccnt", "GLAccountID");

            sub.EntryTable.Insert();
            sub.EntryTable.FieldByName("SubAccount").SetAsString(name);
            sub.EntryTable.FieldByName("SubAccountName").SetAsString("Sub " + name);
            Save(sub, "GLAcSub1", "SubAccountID");

            currency.EntryTable.Insert();
            currency.EntryTable.FieldByName("CurrencyName").SetAsString("Money " + name);
            for (const char* field :
                 {"APGLAccountID", "APDiscGLAccountID", "ARGLAccountID", "ARDiscGLAccountID"})
                currency.EntryTable.FieldByName(field).SetAsInteger(1);
            Save(currency, "Currency", "CurrencyID");
        }
        std::cout << "done" << std::endl;
        return 0;
    } catch (const std::exception& e) {
        std::cout << "error: " << e.what() << std::endl;
        return 2;
    }
}
