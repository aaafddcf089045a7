#include "ledger/inquiry/AccountFind.h"

#include "core/Exception.h"
#include "ledger/accounts/TfrmGLAccountSearch.h"
#include "shell/patterns/ListForm.h"
#include "ui/Application.h"

namespace corvane::ledger {

void FindAccountInList(shell::ListForm& list, char firstChar) {
    auto& search = list.App().SingleForm<TfrmGLAccountSearch>(list.Db());
    store::DataSet& rows = list.MainDataSet();
    shell::SearchStart start;
    // The search starts on the account of the current row, in account order.
    start.IndexName = "GLAccount";
    if (!rows.IsEmpty()) start.Key = {rows.FieldByName("GLAccountID").AsValue()};
    start.FirstChar = firstChar;
    search.Start(list.grdList, start);
    if (search.ShowModal() != ui::mrOK) return;
    if (rows.Locate("GLAccountID", {store::Value(search.SelectedAccountID())})) return;
    throw Exception("'" + search.SearchTable.FieldByName("GLAccount").AsString() +
                    "' not found in list");
}

} // namespace corvane::ledger
