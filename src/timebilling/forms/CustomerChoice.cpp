#include "timebilling/forms/CustomerChoice.h"

#include "receivables/customers/TfrmCustomerSearch.h"
#include "store/Table.h"
#include "ui/Application.h"
#include "ui/Button.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Form.h"

#include <string>

namespace corvane::timebilling {

void ConnectCustomerSearch(ui::Button& button, ui::DBLookupComboBox& combo, store::Database& db) {
    button.OnClick = [&combo, &db] {
        ui::Application& app = combo.OwnerForm().App();
        auto& search = app.SingleForm<receivables::TfrmCustomerSearch>(db);
        // The selection bills or reports whatever time a customer has, suspended or not.
        search.AllowSuspended = true;
        shell::SearchStart start;
        start.IndexName = "CustomerName1";
        if (!combo.KeyValue().IsNull()) start.Key = {combo.KeyValue()};
        search.Start(combo, start);
        if (search.ShowModal() != ui::mrOK || search.SearchTable.IsEmpty()) return;
        combo.SetKeyValue(search.SelectedKey().front());
        if (combo.CanFocus()) combo.SetFocus();
    };
}

void NarrowJobsToCustomer(store::Table& jobs, const store::Value& customer) {
    if (customer.IsNull()) {
        jobs.SetFiltered(false);
        return;
    }
    jobs.SetFilter("CustomerID = " + std::to_string(customer.Int()));
    jobs.SetFiltered(true);
}

} // namespace corvane::timebilling
