#include "receivables/customers/TfrmCustomersFilter.h"

#include "shell/lookups/TdmLookUps.h"
#include "shell/patterns/ListForm.h"
#include "ui/Layout.h"

namespace corvane::receivables {

using shell::LookUp;

TfrmCustomersFilter::TfrmCustomersFilter(ui::Application& app, shell::ListForm& list,
                                         shell::TdmLookUps& lookUps)
    : FilterForm(app, "frmCustomersFilter", list),
      cboSalesman(*this, "cboSalesman", lookUps.ListSource(LookUp::Salesman), "SalesmanID",
                  "LastName;FirstName"),
      cboCustomerType(*this, "cboCustomerType", lookUps.ListSource(LookUp::CusType),
                      "CustomerTypeID", "TypeName"),
      cboCurrency(*this, "cboCurrency", lookUps.ListSource(LookUp::Currency), "CurrencyID",
                  "CurrencyName") {
    using namespace ui;
    for (LookUp which : {LookUp::Salesman, LookUp::CusType, LookUp::Currency})
        lookUps.Open(which, list.Db());
    Caption = "Filter Customers";
    SetLayout(Column{
        FormRow{"Salesman:", cboSalesman},
        FormRow{"Customer Type:", cboCustomerType},
        FormRow{"Currency:", cboCurrency},
        FormRow{"Country:", editCountry},
        rgpSuspended,
        ButtonRow{btnOK, btnCancel, btnReset},
    });
    AddLookupCriterion(cboSalesman, "SalesmanID");
    AddLookupCriterion(cboCustomerType, "CustomerTypeID");
    AddLookupCriterion(cboCurrency, "CurrencyID");
    AddTextCriterion(editCountry, "Country");
    AddYesNoCriterion(rgpSuspended, "Suspended", 0, 1, 2);
    rgpSuspended.SetItemIndex(2);
}

} // namespace corvane::receivables
