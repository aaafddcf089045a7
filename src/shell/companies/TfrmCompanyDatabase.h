#pragma once

#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Label.h"

#include <functional>
#include <string>
#include <string_view>

namespace corvane::shell {

class CompanyShell;

// One company shortcut: its name and its folder (or database name on a server). It adds a new
// company (making its database when the folder holds none), edits a shortcut, or makes the
// sample company. The mode is the caption.
class TfrmCompanyDatabase : public ui::Form {
public:
    static constexpr std::string_view kAddNewCompany = "Add New Company";
    static constexpr std::string_view kEditCompany = "Edit Company";
    static constexpr std::string_view kCreateSampleData = "Create Sample Data";

    TfrmCompanyDatabase(ui::Application& app, CompanyShell& shell);

    // The shortcut name, fixed: the sample company keeps its reserved name.
    void LockSampleName();
    // Caption "Create Sample Data", the sample name, fixed, and the sample folder.
    void SetUpSampleCreator();

    ui::Label lblCompanyName{*this, "lblCompanyName", "Company &Name:"};
    ui::Edit editCompanyName{*this, "editCompanyName"};
    ui::Label lblDatabase{*this, "lblDatabase", "Database Folder:"};
    ui::Edit editDatabase{*this, "editDatabase"};
    ui::Button btnBrowse{*this, "btnBrowse", "&Browse..."};
    // A new company folder that the user's group may open too; otherwise only the user can.
    ui::CheckBox chkShared{*this, "chkShared", "&Shared with the users of my group"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

private:
    void FormShow();
    void Browse();
    void Save();
    // Raises message with the focus on the field.
    [[noreturn]] void Refuse(ui::Edit& field, const std::string& message);
    // Whether the database server holds a database of that name.
    bool ServerHasDatabase(const std::string& name);
    void CheckServerHasDatabase(const std::string& name);
    // Steps after the shortcut is written: the organiser's list, then the new database.
    void ShowInOrganiser(const std::string& name);
    void OpenNewCompany(const std::string& name, const std::string& folder);
    void MakeSampleCompany(const std::string& name, const std::string& folder);

    CompanyShell& shell_;
};

// The modal way to use the dialog: made, set up by setUp (which sets the caption and the fields),
// shown, and freed once closed. Returns how it was closed.
ui::ModalResult RunCompanyDatabase(ui::Application& app, CompanyShell& shell,
                                   const std::function<void(TfrmCompanyDatabase&)>& setUp);

} // namespace corvane::shell
