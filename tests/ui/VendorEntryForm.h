#pragma once

#include "core/Exception.h"
#include "store/Table.h"
#include "ui/Button.h"
#include "ui/DBCheckBox.h"
#include "ui/DBEdit.h"
#include "ui/DBLookupComboBox.h"
#include "ui/DBMemo.h"
#include "ui/Form.h"

namespace corvane::testing {

// An entry form written the way module forms are: cursors, bound controls, layout and rules.
class VendorEntryForm : public ui::Form {
public:
    VendorEntryForm(ui::Application& app, store::Database& db)
        : Form(app, "frmVendor"), tblVendor(db, "Vendor"), tblCurrency(db, "Currency") {
        using namespace ui;
        Caption = "Vendor";
        EnterMovesFocus = true;
        btnCancel.Cancel = true;
        SetLayout(Column{
            Group{"Vendor",
                  {FormRow{"Vendor No", editVendorNo}, FormRow{"Name", editVendorName},
                   FormRow{"Currency", cboCurrency}, FormRow{"Discount days", editDiscDays}}},
            FormRow{"Notes", memoNotes},
            Row{chkSuspended, Stretch{}},
            ButtonRow{btnOK, btnCancel},
        });
        tblVendor.Open();
        tblCurrency.Open();
        tblVendor.FieldByName("VendorName").OnValidate = [](store::Field& f) {
            if (f.AsString().empty()) throw Exception("Field 'Name' must have a value");
        };
        btnOK.OnClick = [this] {
            if (tblVendor.State() != store::DataSetState::Browse) tblVendor.Post();
            Close();
        };
        btnCancel.OnClick = [this] {
            tblVendor.Cancel();
            Close();
        };
    }

    store::Table tblVendor, tblCurrency;
    ui::DBEdit editVendorNo{*this, "editVendorNo", tblVendor, "VendorNo"};
    ui::DBEdit editVendorName{*this, "editVendorName", tblVendor, "VendorName"};
    ui::DBLookupComboBox cboCurrency{*this,       "cboCurrency", tblVendor,     "CurrencyID",
                                     tblCurrency, "CurrencyID",  "CurrencyName"};
    ui::DBEdit editDiscDays{*this, "editDiscDays", tblVendor, "DiscDays"};
    ui::DBMemo memoNotes{*this, "memoNotes", tblVendor, "Notes"};
    ui::DBCheckBox chkSuspended{*this, "chkSuspended", "Suspended", tblVendor, "Suspended"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};
};

} // namespace corvane::testing
