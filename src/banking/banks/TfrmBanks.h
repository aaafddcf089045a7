#pragma once

#include "shell/patterns/ListForm.h"

#include <functional>
#include <string_view>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::banking {

// The banks by name with their currency; the bank book and reconciliation of the current bank.
// A bank that cheques, payments or point-of-sale invoices name cannot be deleted.
class TfrmBanks : public shell::ListForm {
public:
    TfrmBanks(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps);
    ~TfrmBanks() override;

    store::Table& tblBank = MainTable;
    store::Table tblCurrency;
    ui::MenuItem& mnuSortBankName;
    ui::MenuItem mnuViewSep{mnuView, "mnuViewSep", "-"};
    ui::MenuItem mnuBankBook{mnuView, "mnuBankBook", "&Bank Book"};
    ui::MenuItem mnuBankRec{mnuView, "mnuBankRec", "Bank &Reconciliation"};

    shell::TdmLookUps* LookUps = nullptr;

protected:
    shell::EntryForm& Entry() override;

private:
    void BeforeDeleteBank();
    // The bank book or reconciliation, after the user's right is checked, on the bank shown.
    void OpenForBank(std::string_view form, std::string_view right);

    shell::TdmLookUps& lookUps_;
};

} // namespace corvane::banking
