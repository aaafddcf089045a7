#include "cli/demo/DemoUsersForm.h"

#include "cli/demo/DemoUserForm.h"
#include "ui/Application.h"

namespace corvane::cli::demo {

DemoUsersForm::DemoUsersForm(ui::Application& app, store::Database& db)
    : Form(app, "frmDemoUsers"), tblUsers(db, "Users") {
    using namespace ui;
    Caption = "Users";
    btnClose.Cancel = true;
    gridUsers.AddColumn("UserName", "User name", 160);
    gridUsers.AddColumn("Security", "Security", 64);
    SetLayout(Column{gridUsers, ButtonRow{btnNew, btnEdit, btnDelete, btnClose}});
    // A new user starts with no rights, not with rights nobody decided on.
    tblUsers.OnNewRecord = [](store::DataSet& ds) {
        ds.FieldByName("Security").SetAsBoolean(false);
    };
    tblUsers.Open();
    UpdateButtons();

    btnNew.OnClick = [this] {
        tblUsers.Append();
        EditCurrent();
    };
    btnEdit.OnClick = [this] {
        tblUsers.Edit();
        EditCurrent();
    };
    gridUsers.OnDblClick = [this] {
        if (btnEdit.Enabled) btnEdit.OnClick();
    };
    btnDelete.OnClick = [this] {
        std::string name = tblUsers.FieldByName("UserName").AsString();
        if (App().MessageDlg("Delete the user " + name + "?", MsgType::Confirmation, {mbYes, mbNo},
                             mbNo) != mbYes)
            return;
        tblUsers.Delete();
        UpdateButtons();
    };
    btnClose.OnClick = [this] { Close(); };
    OnClose = [](CloseAction& action) { action = CloseAction::Free; };
}

void DemoUsersForm::EditCurrent() {
    auto& entry = App().CreateForm<DemoUserForm>(tblUsers);
    entry.ShowModal();
    // Closed by its close box: whatever was typed is not kept.
    if (tblUsers.State() != store::DataSetState::Browse) tblUsers.Cancel();
    App().FreeForm(entry);
    UpdateButtons();
}

void DemoUsersForm::UpdateButtons() {
    bool any = !tblUsers.IsEmpty();
    btnEdit.Enabled = any;
    btnDelete.Enabled = any;
}

} // namespace corvane::cli::demo
