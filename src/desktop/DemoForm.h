#pragma once

#include "store/Table.h"
#include "ui/Button.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Grid.h"
#include "ui/Menu.h"
#include "ui/MenuItem.h"
#include "ui/StatusBar.h"

namespace corvane::desktop {

// The window the program opens until the module forms arrive: the company's vendors in a list,
// with a search box, a menu and a status line.
class DemoForm : public ui::Form {
public:
    DemoForm(ui::Application& app, store::Database& db);

    store::Table tblVendor;
    ui::MainMenu mnuMain{*this};
    ui::MenuItem mnuFile{mnuMain, "mnuFile", "&File"};
    ui::MenuItem mnuExit{mnuFile, "mnuExit", "E&xit", "Ctrl+Q"};
    ui::MenuItem mnuView{mnuMain, "mnuView", "&View"};
    ui::MenuItem mnuByNumber{mnuView, "mnuByNumber", "By &Number"};
    ui::MenuItem mnuByName{mnuView, "mnuByName", "By N&ame"};
    ui::Edit editSearch{*this, "editSearch"};
    ui::Button btnFind{*this, "btnFind", "&Find"};
    ui::Grid grdVendors{*this, "grdVendors", tblVendor};
    ui::Button btnClose{*this, "btnClose", "&Close"};
    ui::StatusBar stbMain{*this, "stbMain"};

private:
    void ShowCount();
    void Find();
};

// A new company gets a few vendors to list, so that the first window is not empty.
void AddSampleVendors(store::Database& db, int count);
// And a few users.
void AddSampleUsers(store::Database& db);

} // namespace corvane::desktop
