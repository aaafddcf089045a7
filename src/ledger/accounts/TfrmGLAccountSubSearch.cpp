#include "ledger/accounts/TfrmGLAccountSubSearch.h"

#include "ledger/accounts/TfrmGLAccountSub.h"
#include "ui/Layout.h"

namespace corvane::ledger {

TfrmGLAccountSubSearch::TfrmGLAccountSubSearch(ui::Application& app, store::Database& db)
    : SearchForm(app, "frmGLAccountSubSearch", db, SubAccountTable(1), "SubAccountID") {
    using namespace ui;
    Caption = "GL Subaccount 1";
    grdSearch.AddColumn("SubAccount", "Subaccount no.", 80);
    grdSearch.AddColumn("SubAccountName", "Name", 120);
    SetLayout(Column{
        FormRow{"Subaccount no.", editFindSubAccount},
        FormRow{"Name", editFindSubAccountName},
        grdSearch,
        ButtonRow{btnOK, btnCancel},
    });
    AddSearchEdit(editFindSubAccount, "SubAccount", "SubAccount");
    AddSearchEdit(editFindSubAccountName, "SubAccountName", "SubAccountName1");
}

void TfrmGLAccountSubSearch::SetLevel(int level) {
    std::string table = SubAccountTable(level);
    Caption = "GL Subaccount " + std::to_string(level);
    if (level == level_) return;
    SearchTable.Close();
    SearchTable.SetTableName(table);
    SearchTable.Open();
    level_ = level;
}

} // namespace corvane::ledger
