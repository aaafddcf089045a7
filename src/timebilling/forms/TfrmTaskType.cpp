#include "timebilling/forms/TfrmTaskType.h"

#include "timebilling/domain/MasterRules.h"
#include "timebilling/domain/TimeTexts.h"
#include "timebilling/forms/VerdictFocus.h"
#include "ui/Layout.h"

namespace corvane::timebilling {

namespace text = time_text;

TfrmTaskType::TfrmTaskType(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmTaskType", db, "TaskType", "tblTaskType"), tblGLAccnt(db, "GLAccnt"),
      cboSalesGLAccount(*this, "cboSalesGLAccount", EntryTable, "SalesGLAccountID", tblGLAccnt,
                        "GLAccountID", "GLAccount;AccountName") {
    using namespace ui;
    EntryTable.SetDrawnKey("TaskTypeID");
    tblGLAccnt.SetIndexName("GLAccount");
    tblGLAccnt.Open();
    editTaxCodes.SetEditMask("!lll;0;_");
    editTaxCodes.Hint = text::TaxCodesHint;
    store::Field& codes = EntryTable.FieldByName("TaxCodes");
    codes.OnSetText = [](store::Field& f, std::string_view typed) {
        f.SetAsString(NormalTaxCodes(std::string(typed)));
    };
    SetLayout(Column{
        FormRow{"Type Name", editTypeName},
        FormRow{"Rate", editRate},
        FormRow{"Sales GL Account", cboSalesGLAccount},
        FormRow{"Tax Codes", editTaxCodes},
        ButtonRow{btnOK, btnCancel},
    });
    EntryTable.OnNewRecord = [](store::DataSet& ds) {
        ds.FieldByName("TaxCodes").SetAsString("   ");
    };
    EntryTable.BeforePost = [this](store::DataSet&) {
        Enforce(CheckTaskType(EntryTable.OwnerDatabase(), EntryTable),
                {{"TypeName", &editTypeName},
                 {"SalesGLAccountID", &cboSalesGLAccount},
                 {"TaxCodes", &editTaxCodes}});
        EntryTable.FieldByName("TaxCodes")
            .SetAsString(NormalTaxCodes(EntryTable.FieldByName("TaxCodes").AsString()));
    };
    OnShow = [this] { ShowCaption(); };
}

TfrmTaskType::~TfrmTaskType() {
    EntryTable.BeforePost = EntryTable.OnNewRecord = nullptr;
    if (store::Field* codes = EntryTable.FindField("TaxCodes")) codes->OnSetText = nullptr;
}

void TfrmTaskType::ShowCaption() {
    if (!EntryTable.Active()) return;
    const std::string name = EntryTable.FieldByName("TypeName").AsString();
    Caption =
        EntryTable.State() == store::DataSetState::Insert && name.empty() ? "New Task Type" : name;
}

std::string TfrmTaskType::KeyViolationMessage() const {
    if (Visible() && nameEdit_->CanFocus()) nameEdit_->SetFocus();
    return text::TypeNameUnique;
}

} // namespace corvane::timebilling
