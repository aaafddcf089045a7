#include "receivables/masters/TfrmCusType.h"

#include "banking/usage/RefusalFocus.h"
#include "receivables/domain/MasterRecords.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Layout.h"

namespace corvane::receivables {

TfrmCusType::TfrmCusType(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmCusType", db, "CusType", "tblCusType") {
    using namespace ui;
    SetLayout(Column{FormRow{"Type Name:", editTypeName}, ButtonRow{btnOK, btnCancel}});
    // A new row takes the highest key + 1, drawn in the transaction that saves it.
    EntryTable.SetDrawnKey("CustomerTypeID");
    EntryTable.BeforePost = [this](store::DataSet&) {
        banking::RaiseRefusal(CheckCustomerType(EntryTable), {{"TypeName", &editTypeName}});
    };
    EntryTable.AfterPost = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::CusType);
    };
    OnShow = [this] { ShowCaption(); };
}

void TfrmCusType::ShowCaption() {
    if (!EntryTable.Active()) return;
    const std::string name = EntryTable.FieldByName("TypeName").AsString();
    Caption = name.empty() ? "New Customer Type" : name;
}

std::string TfrmCusType::KeyViolationMessage() const {
    if (Visible() && nameEdit_->CanFocus()) nameEdit_->SetFocus();
    return "Type Name must be unique";
}

} // namespace corvane::receivables
