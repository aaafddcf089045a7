#include "timebilling/forms/CustomerChoice.h"

#include "receivables/customers/CustomerPick.h"
#include "store/Table.h"
#include "ui/Button.h"
#include "ui/DBLookupComboBox.h"

#include <string>

namespace corvane::timebilling {

void ConnectCustomerSearch(ui::Button& button, ui::DBLookupComboBox& combo, store::Database& db) {
    button.OnClick = [&combo, &db] {
        // The selection bills or reports whatever time a customer has, suspended or not.
        receivables::CustomerPick pick;
        pick.Current = combo.KeyValue();
        const std::optional<store::Value> chosen = receivables::PickCustomer(combo, db, pick);
        if (!chosen) return;
        combo.SetKeyValue(*chosen);
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
