#include "ledger/accounts/TfrmGLAccountSub.h"

#include "core/Exception.h"
#include "core/Text.h"
#include "ui/Layout.h"

namespace corvane::ledger {

std::string SubAccountTable(int level) {
    if (level < 1 || level > kSubAccountLevels)
        throw Exception("Subaccount level " + std::to_string(level) + " does not exist");
    return "GLAcSub" + std::to_string(level);
}

TfrmGLAccountSub::TfrmGLAccountSub(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmGLAccountSub", db, SubAccountTable(1), "tblGLAcSub") {
    using namespace ui;
    // A new subaccount's hidden id follows the highest of its level, drawn by the save itself.
    EntryTable.SetDrawnKey("SubAccountID");
    LabelFields();
    SetLayout(Column{
        FormRow{"Subaccount no.", editSubAccount},
        FormRow{"Name", editSubAccountName},
        chkSuspended,
        ButtonRow{btnOK, btnCancel},
    });
    EntryTable.BeforePost = [this](store::DataSet&) { BeforePostSub(); };
    OnShow = [this] { ShowCaption(); };
    ShowCaption();
}

void TfrmGLAccountSub::LabelFields() {
    EntryTable.FieldByName("SubAccount").DisplayLabel = "Subaccount no.";
    EntryTable.FieldByName("SubAccountName").DisplayLabel = "Subaccount Name";
}

void TfrmGLAccountSub::SetLevel(int level) {
    std::string table = SubAccountTable(level);
    if (level == level_) return;
    // A subaccount still being typed keeps the form on its level: the user finishes it first.
    if (EntryTable.State() != store::DataSetState::Browse) {
        Show();
        Abort();
    }
    EntryTable.Close();
    EntryTable.SetTableName(table);
    EntryTable.Open();
    level_ = level;
    // The fields are made anew with the table.
    LabelFields();
    ShowCaption();
}

void TfrmGLAccountSub::BeforePostSub() {
    struct Required {
        const char* Field;
        ui::Control& Control;
    };
    for (Required required :
         {Required{"SubAccountName", editSubAccountName}, Required{"SubAccount", editSubAccount}}) {
        store::Field& field = EntryTable.FieldByName(required.Field);
        if (!field.IsNull() && !TrimBlanks(field.AsString()).empty()) continue;
        if (required.Control.CanFocus()) required.Control.SetFocus();
        throw Exception("Field '" + field.Label() + "' must have a value");
    }
}

void TfrmGLAccountSub::ShowCaption() {
    if (!EntryTable.Active()) return;
    Caption = EntryTable.State() == store::DataSetState::Insert
                  ? "New Subaccount"
                  : EntryTable.FieldByName("SubAccountName").AsString();
}

std::string TfrmGLAccountSub::KeyViolationMessage() const {
    if (Visible() && numberEdit_->CanFocus()) numberEdit_->SetFocus();
    return "Subaccount no. and Name must be unique";
}

} // namespace corvane::ledger
