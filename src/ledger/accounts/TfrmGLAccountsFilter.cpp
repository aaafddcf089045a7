#include "ledger/accounts/TfrmGLAccountsFilter.h"

#include "ui/Layout.h"

namespace corvane::ledger {

TfrmGLAccountsFilter::TfrmGLAccountsFilter(ui::Application& app, shell::ListForm& list)
    : FilterForm(app, "frmGLAccountsFilter", list) {
    using namespace ui;
    Caption = "Filter GL Accounts";
    SetLayout(Column{
        FormRow{"Account no.", editGLAccount},
        FormRow{"Name", editAccountName},
        rgpSuspended,
        ButtonRow{btnOK, btnCancel, btnReset},
    });
    AddTextCriterion(editGLAccount, "GLAccount");
    AddTextCriterion(editAccountName, "AccountName");
    AddYesNoCriterion(rgpSuspended, "Suspended", 0, 1, 2);
    rgpSuspended.SetItemIndex(2);
}

} // namespace corvane::ledger
