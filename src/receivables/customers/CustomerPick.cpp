#include "receivables/customers/CustomerPick.h"

#include "receivables/customers/TfrmCustomerSearch.h"
#include "ui/Application.h"
#include "ui/Form.h"

namespace corvane::receivables {

std::optional<store::Value> PickCustomer(const ui::Control& caller, store::Database& db,
                                         const CustomerPick& pick) {
    auto& search = caller.OwnerForm().App().SingleForm<TfrmCustomerSearch>(db);
    search.AllowSuspended = pick.AllowSuspended;
    shell::SearchStart start;
    start.IndexName = pick.IndexName;
    if (!pick.Current.IsNull()) start.Key = {pick.Current};
    start.FirstChar = pick.FirstChar;
    search.Start(caller, start);
    if (search.ShowModal() != ui::mrOK || search.SearchTable.IsEmpty()) return std::nullopt;
    return search.SelectedKey().front();
}

} // namespace corvane::receivables
