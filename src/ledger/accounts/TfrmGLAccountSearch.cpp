#include "ledger/accounts/TfrmGLAccountSearch.h"

#include "ledger/accounts/AccountTypes.h"
#include "ui/Layout.h"

namespace corvane::ledger {

std::string AccountTypeFilter(const std::string& standing, int accountType) {
    std::string term = "AccountType = " + std::to_string(accountType);
    if (standing.empty()) return term;
    return standing + " AND (" + term + ")";
}

TfrmGLAccountSearch::TfrmGLAccountSearch(ui::Application& app, store::Database& db)
    : SearchForm(app, "frmGLAccountSearch", db, "GLAccnt", "GLAccountID") {
    using namespace ui;
    Caption = "GL Account";
    cboAccountType.Items.push_back("All");
    for (const std::string& label : AccountTypeLabels())
        cboAccountType.Items.push_back(label);
    grdSearch.AddColumn("GLAccount", "Account no.", 80);
    grdSearch.AddColumn("AccountName", "Name", 250);
    SetLayout(Column{
        FormRow{"Account no.", editFindGLAccount},
        FormRow{"Name", editFindAccountName},
        FormRow{"Type", cboAccountType},
        grdSearch,
        ButtonRow{btnOK, btnCancel, btnList},
    });
    AddSearchEdit(editFindGLAccount, "GLAccount", "GLAccount");
    AddSearchEdit(editFindAccountName, "AccountName", "AccountName1");
    cboAccountType.OnChange = [this] { TypeChosen(); };
    // Start has put the caller's filter on the cursor by now: that is what the type narrows.
    OnShow = [this] {
        standing_ = SearchTable.Filtered() ? SearchTable.Filter() : std::string();
        cboAccountType.SetItemIndex(0);
    };
}

void TfrmGLAccountSearch::TypeChosen() {
    int type = cboAccountType.ItemIndex();
    std::string expression = type > 0 ? AccountTypeFilter(standing_, type) : standing_;
    SearchTable.SetFilter(expression);
    SearchTable.SetFiltered(!expression.empty());
    SearchTable.First();
}

std::int64_t TfrmGLAccountSearch::SelectedAccountID() {
    return SearchTable.FieldByName("GLAccountID").AsInteger();
}

} // namespace corvane::ledger
