#pragma once

#include "banking/domain/BankRecord.h"
#include "store/Query.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Form.h"
#include "ui/Grid.h"
#include "ui/Menu.h"
#include "ui/MenuItem.h"

#include <map>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::banking {

// Every posted ledger row on a bank's account with its running balance: the latest 300 rows,
// the balance carried through the rows before them.
class TfrmBankBook : public ui::Form {
public:
    TfrmBankBook(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps);
    ~TfrmBankBook() override;

    store::Query qryBankBook;
    ui::DBLookupComboBox cboBank;
    ui::Grid grdBankBook{*this, "grdBankBook", qryBankBook};
    ui::MainMenu mnuMain{*this};
    ui::MenuItem mnuView{mnuMain, "mnuView", "&View"};
    ui::MenuItem mnuRefresh{mnuView, "mnuRefresh", "&Refresh", "F5"};

    // The bank shown on opening: the one given, else the first by name.
    void SetDefaultBankID(std::int64_t bankId);
    void ShowBank();

private:
    store::Database& db_;
    std::map<std::int64_t, BankBookLine> lines_;
};

} // namespace corvane::banking
