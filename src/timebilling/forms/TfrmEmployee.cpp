#include "timebilling/forms/TfrmEmployee.h"

#include "timebilling/domain/MasterRules.h"
#include "timebilling/domain/TimeTexts.h"
#include "timebilling/forms/VerdictFocus.h"
#include "ui/Layout.h"

namespace corvane::timebilling {

TfrmEmployee::TfrmEmployee(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmEmployee", db, "Employee", "tblEmployee") {
    using namespace ui;
    EntryTable.SetDrawnKey("EmployeeID");
    SetLayout(Column{
        FormRow{"Name", editEmployeeName},
        FormRow{"Job Title", editJobTitle},
        Group{"Phone",
              {FormRow{"Business", Row{editBusinessPhone, editBusinessPhoneExt}},
               FormRow{"Business 2", Row{editBusinessPhone2, editBusinessPhone2Ext}},
               FormRow{"Home", editHomePhone}, FormRow{"Fax", editFax},
               FormRow{"Cellular", editCellular}, FormRow{"Pager", editPager}}},
        FormRow{"E-Mail", editEMail},
        FormRow{"Notes", memNotes},
        ButtonRow{btnOK, btnCancel},
    });
    EntryTable.BeforePost = [this](store::DataSet&) {
        Enforce(CheckEmployee(EntryTable.OwnerDatabase(), EntryTable),
                {{"EmployeeName", &editEmployeeName}});
    };
    OnShow = [this] { ShowCaption(); };
}

TfrmEmployee::~TfrmEmployee() {
    EntryTable.BeforePost = nullptr;
}

void TfrmEmployee::ShowCaption() {
    if (!EntryTable.Active()) return;
    const std::string name = EntryTable.FieldByName("EmployeeName").AsString();
    Caption =
        EntryTable.State() == store::DataSetState::Insert && name.empty() ? "New Employee" : name;
}

std::string TfrmEmployee::KeyViolationMessage() const {
    if (Visible() && nameEdit_->CanFocus()) nameEdit_->SetFocus();
    return time_text::EmployeeNameUnique;
}

} // namespace corvane::timebilling
