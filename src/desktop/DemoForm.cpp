#include "desktop/DemoForm.h"

#include "store/Database.h"
#include "ui/Application.h"
#include "ui/Layout.h"

#include <array>
#include <cstdio>

namespace corvane::desktop {

DemoForm::DemoForm(ui::Application& app, store::Database& db)
    : Form(app, "frmDemo"), tblVendor(db, "Vendor") {
    using namespace ui;
    Caption = "Vendors";
    ClientWidth = 760;
    ClientHeight = 480;
    tblVendor.Open();
    grdVendors.AddColumn("VendorNo", "Vendor No", 90)
        .AddColumn("VendorName", "Name", 240)
        .AddColumn("City", "City", 140)
        .AddColumn("Phone", "Phone", 120);
    btnClose.Cancel = true;
    btnFind.Default = true;
    mnuByNumber.RadioItem = true;
    mnuByName.RadioItem = true;
    mnuByNumber.SetChecked(true);
    SetLayout(Column{
        Row{FormRow{"&Search", editSearch}, btnFind},
        grdVendors,
        ButtonRow{btnClose},
    });
    mnuExit.OnClick = [this] { Close(); };
    btnClose.OnClick = [this] { Close(); };
    btnFind.OnClick = [this] { Find(); };
    mnuByNumber.OnClick = [this] { mnuByNumber.SetChecked(true); };
    mnuByName.OnClick = [this] { mnuByName.SetChecked(true); };
    tblVendor.AfterScroll = [this](store::DataSet&) { ShowCount(); };
    OnShow = [this] { ShowCount(); };
}

void DemoForm::ShowCount() {
    std::int64_t count = tblVendor.RecordCount();
    stbMain.Panels = {
        {std::to_string(count) + (count == 1 ? " vendor" : " vendors"), 160},
        {tblVendor.IsEmpty() ? std::string() : tblVendor.FieldByName("VendorName").DisplayText()}};
}

void DemoForm::Find() {
    std::string text = editSearch.Text();
    if (text.empty()) return;
    if (!tblVendor.Locate("VendorNo", {store::Value(text)}, {.CaseInsensitive = true}))
        App().MessageDlg("No vendor numbered '" + text + "'.", ui::MsgType::Information,
                         {ui::mbOK});
}

void AddSampleVendors(store::Database& db, int count) {
    static constexpr std::array<const char*, 8> Cities = {
        "Toronto", "Vancouver", "Montreal", "Calgary", "Halifax", "Winnipeg", "Ottawa", "Regina"};
    static constexpr std::array<const char*, 10> Names = {
        "Northwind Supply", "Maple Office",   "Harbour Freight", "Prairie Paper",
        "Summit Hardware",  "Lakeside Print", "Granite Tools",   "Cedar Logistics",
        "Bluewater Foods",  "Aurora Software"};
    store::Transaction tx(db, {"Vendor"});
    store::Table vendors(db, "Vendor");
    vendors.Open();
    for (int i = 1; i <= count; ++i) {
        char no[16];
        std::snprintf(no, sizeof no, "V%05d", i);
        char phone[24];
        std::snprintf(phone, sizeof phone, "(416) 555-%04d", (i * 37) % 10000);
        vendors.Insert();
        vendors.FieldByName("VendorID").SetAsInteger(i);
        vendors.FieldByName("VendorNo").SetAsString(no);
        vendors.FieldByName("VendorName")
            .SetAsString(std::string(Names[static_cast<std::size_t>(i) % Names.size()]) + " " +
                         std::to_string(i));
        vendors.FieldByName("City").SetAsString(
            Cities[static_cast<std::size_t>(i) % Cities.size()]);
        vendors.FieldByName("Phone").SetAsString(phone);
        vendors.FieldByName("CurrencyID").SetAsInteger(1);
        vendors.Post();
    }
    tx.Commit();
}

void AddSampleUsers(store::Database& db) {
    store::Transaction tx(db, {"Users"});
    store::Table users(db, "Users");
    users.Open();
    for (const char* name : {"Admin", "Bookkeeper", "Clerk", "Manager", "Payroll"}) {
        users.Insert();
        users.FieldByName("UserName").SetAsString(name);
        users.FieldByName("Security").SetAsBoolean(std::string_view(name) == "Admin");
        users.Post();
    }
    tx.Commit();
}

} // namespace corvane::desktop
