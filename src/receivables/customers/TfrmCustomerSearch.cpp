#include "receivables/customers/TfrmCustomerSearch.h"

#include "core/Exception.h"
#include "receivables/domain/CustomerRecord.h"
#include "ui/Layout.h"

namespace corvane::receivables {

TfrmCustomerSearch::TfrmCustomerSearch(ui::Application& app, store::Database& db)
    : SearchForm(app, "frmCustomerSearch", db, "Customer", "CustomerID"),
      cboCustomerType(AddTypeFilter("cboCustomerType", "CusType", "CustomerTypeID", "TypeName")) {
    using namespace ui;
    Caption = "Find Customer";
    grdSearch.AddColumn("CustomerNo", "Customer no.", 80);
    grdSearch.AddColumn("CustomerName", "Name", 220);
    grdSearch.AddColumn("City", "City", 120);
    SetLayout(Column{
        FormRow{"Customer no.", editFindCustomerNo},
        FormRow{"Name", editFindCustomerName},
        FormRow{"Customer Type", cboCustomerType},
        grdSearch,
        ButtonRow{btnOK, btnCancel, btnList},
    });
    AddSearchEdit(editFindCustomerNo, "CustomerNo", "CustomerNo");
    AddSearchEdit(editFindCustomerName, "CustomerName", "CustomerName1");
    auto choose = btnOK.OnClick;
    btnOK.OnClick = [this, choose] {
        if (!AllowSuspended && !SearchTable.IsEmpty() &&
            SearchTable.FieldByName("Suspended").AsBoolean())
            throw Exception("Customer '" +
                            CustomerLabel(SearchTable.FieldByName("CustomerNo").AsString(),
                                          SearchTable.FieldByName("CustomerName").AsString()) +
                            "' has been suspended");
        if (choose) choose();
    };
}

} // namespace corvane::receivables
