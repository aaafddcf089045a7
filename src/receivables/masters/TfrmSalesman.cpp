#include "receivables/masters/TfrmSalesman.h"

#include "banking/usage/RefusalFocus.h"
#include "receivables/domain/MasterRecords.h"
#include "shell/lookups/LookUpCalcFields.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Layout.h"

namespace corvane::receivables {

TfrmSalesman::TfrmSalesman(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmSalesman", db, "Salesman", "tblSalesman") {
    using namespace ui;
    auto dial = [this](const std::string& number) { DialNumber(App(), number); };
    for (auto [button, field] :
         {std::pair{&btnBusinessPhone, "BusinessPhone"},
          std::pair{&btnBusinessPhone2, "BusinessPhone2"}, std::pair{&btnCellular, "Cellular"},
          std::pair{&btnPager, "Pager"}, std::pair{&btnHomePhone, "HomePhone"}})
        actions_.push_back(std::make_unique<FieldActionButton>(*button, EntryTable, field, dial));
    actions_.push_back(std::make_unique<FieldActionButton>(
        btnEMail, EntryTable, "EMail", [this](const std::string& a) { MailTo(App(), a); }));
    SetLayout(Column{
        FormRow{"First Name:", editFirstName},
        FormRow{"Last Name:", editLastName},
        FormRow{"Job Title:", editJobTitle},
        FormRow{"Business Phone:", Row{editBusinessPhone, editBusinessPhoneExt, btnBusinessPhone}},
        FormRow{"Business Phone 2:",
                Row{editBusinessPhone2, editBusinessPhone2Ext, btnBusinessPhone2}},
        FormRow{"Cellular:", Row{editCellular, btnCellular}},
        FormRow{"Pager:", Row{editPager, btnPager}},
        FormRow{"Home Phone:", Row{editHomePhone, btnHomePhone}},
        FormRow{"Fax:", editFax},
        FormRow{"E-Mail:", Row{editEMail, btnEMail}},
        FormRow{"Notes:", memNotes},
        ButtonRow{btnOK, btnCancel},
    });
    // A new row takes the highest key + 1, drawn in the transaction that saves it.
    EntryTable.SetDrawnKey("SalesmanID");
    EntryTable.BeforePost = [this](store::DataSet&) {
        banking::RaiseRefusal(CheckSalesman(EntryTable), {{"LastName", &editLastName}});
    };
    EntryTable.AfterPost = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::Salesman);
    };
    OnShow = [this] { ShowCaption(); };
}

void TfrmSalesman::ShowCaption() {
    if (!EntryTable.Active()) return;
    const std::string name = shell::SalesmanFullName(EntryTable.FieldByName("FirstName").AsString(),
                                                     EntryTable.FieldByName("LastName").AsString());
    Caption = name.empty() ? "New Salesman" : name;
}

std::string TfrmSalesman::KeyViolationMessage() const {
    if (Visible() && nameEdit_->CanFocus()) nameEdit_->SetFocus();
    return "Salesman Name must be unique";
}

} // namespace corvane::receivables
