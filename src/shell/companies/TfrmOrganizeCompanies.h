#pragma once

#include "shell/companies/CompanyListSearch.h"
#include "ui/Button.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/ListBox.h"

#include <string>

namespace corvane::shell {

class CompanyShell;

// The company shortcuts: edit, delete and add them. It closes with Yes when it changed the list,
// so that the main form rebuilds its Companies menu, and No otherwise.
class TfrmOrganizeCompanies : public ui::Form {
public:
    TfrmOrganizeCompanies(ui::Application& app, CompanyShell& shell);

    // Something was changed while the form was up.
    bool Changed() const { return changed_; }
    // The name selected in the list; empty when none.
    std::string SelectedName() const { return lboCompanies.Text(); }
    // A shortcut was saved: it takes the place of the selected one (or joins the list) and is
    // selected.
    void ShowSavedCompany(const std::string& name, bool replaceSelected);

    ui::Edit editCompany{*this, "editCompany"};
    ui::ListBox lboCompanies{*this, "lboCompanies"};
    ui::Button btnEdit{*this, "btnEdit", "&Edit..."};
    ui::Button btnDelete{*this, "btnDelete", "&Delete"};
    ui::Button btnNew{*this, "btnNew", "&New..."};
    ui::Button btnClose{*this, "btnClose", "&Close"};

private:
    void FormShow();
    void UpdateButtons();
    void EditCompany();
    void DeleteCompany();
    void NewCompany();

    CompanyShell& shell_;
    CompanyListSearch search_{lboCompanies, editCompany, [this] { UpdateButtons(); }};
    bool changed_ = false;
};

} // namespace corvane::shell
