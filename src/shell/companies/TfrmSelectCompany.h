#pragma once

#include "shell/companies/CompanyListSearch.h"
#include "ui/Button.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/ListBox.h"

namespace corvane::shell {

class CompanyShell;

// Picks a company from the whole list, for those the Companies menu has no room for.
class TfrmSelectCompany : public ui::Form {
public:
    TfrmSelectCompany(ui::Application& app, CompanyShell& shell);

    ui::Edit editCompany{*this, "editCompany"};
    ui::ListBox lboCompanies{*this, "lboCompanies"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

private:
    void OpenSelected();

    CompanyShell& shell_;
    CompanyListSearch search_{lboCompanies, editCompany, nullptr};
};

} // namespace corvane::shell
