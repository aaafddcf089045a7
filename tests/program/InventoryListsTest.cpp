#include "inventory/items/TfrmItems.h"
#include "program/ProgramForms.h"
#include "shell/main/FormRegistry.h"
#include "shell/patterns/ListForm.h"
#include "support/RegistryForms.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

#include <fstream>
#include <functional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

#include <gtest/gtest.h>

namespace corvane::testing {
namespace {

class RefusingForms : public RegistryForms {
public:
    using RegistryForms::RegistryForms;
    bool CheckAccess(const std::string& right, const std::string&) override {
        return !refused.count(right);
    }
    std::set<std::string> refused;
};

// Two items with stock in two warehouses and a third that never moved; history for both.
class InventoryLists : public UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", "Stock Co"},
                              {"FiscalYear", 2017},
                              {"DefaultPeriodYYYY", 2017},
                              {"DefaultPeriodPP", 3}});
        InsertRow("ItemType", {{"ItemTypeID", 1}, {"TypeName", "Goods"}, {"Inventory", true}});
        InsertRow("Warehse", {{"WarehouseID", 1}, {"WarehouseName", "Main"}});
        InsertRow("Warehse", {{"WarehouseID", 2}, {"WarehouseName", "East Depot"}});
        for (auto [id, no, name] : {std::tuple{10, "1001", "Bolts"}, std::tuple{11, "1002", "Nuts"},
                                    std::tuple{12, "1003", "Washers"}})
            InsertRow("Item", {{"ItemID", id},
                               {"ItemNo", no},
                               {"ItemDescription", name},
                               {"ItemTypeID", 1},
                               {"SalesGLAccountID", 1}});
        InsertRow("IBalance", {{"ItemID", 10}, {"WarehouseID", 1}, {"QtyOnHand", 1250.5}});
        InsertRow("IBalance", {{"ItemID", 10}, {"WarehouseID", 2}, {"QtyOnHand", -2.0}});
        InsertRow("IBalance", {{"ItemID", 11}, {"WarehouseID", 1}, {"QtyOnHand", 7.0}});
        History(10, 1, 3, "2017-03-02", 1260.5, "Receipt 1");
        History(10, 1, 2, "2017-03-05", 10.0, "Invoice 5");
        History(10, 2, 1, "2017-03-06", -2.0, "Adjustment 1");
        History(11, 1, 3, "2017-03-02", 7.0, "Receipt 1");
        program::RegisterProgramForms(registry);
    }
    void History(int item, int warehouse, int type, const char* date, double quantity,
                 const char* text) {
        InsertRow("IHist", {{"ItemID", item},
                            {"WarehouseID", warehouse},
                            {"GLYear", 2017},
                            {"GLPeriod", 3},
                            {"TransType", type},
                            {"TransDate", date},
                            {"Quantity", quantity},
                            {"TransDescription", text}});
    }
    inventory::TfrmItems& ItemsOn(int row) {
        auto* items = dynamic_cast<inventory::TfrmItems*>(forms.OpenForm("frmItems"));
        EXPECT_NE(items, nullptr);
        items->Show();
        ui::FormDriver(*items).SelectRow("grdList", row);
        return *items;
    }
    std::vector<std::vector<std::string>> Shown(std::string_view form) {
        ui::Form* shown = app.FindForm(form);
        if (!shown) return {};
        auto& list = dynamic_cast<shell::ListForm&>(*shown);
        list.MainDataSet().First();
        return ui::FormDriver(list).GridRows("grdList", 0, 50).Rows;
    }

    void WhenModal(const std::string& name, std::function<void(ui::FormDriver&)> script) {
        host.ScriptModal(name, [script](ui::Form& form) {
            ui::FormDriver d(form);
            script(d);
        });
    }

    shell::FormRegistry registry;
    RefusingForms forms{app, db_, registry};
};

using Rows = std::vector<std::vector<std::string>>;

TEST_F(InventoryLists, AnItemsTotalsShowItsStockPerWarehouseAndNothingElse) {
    inventory::TfrmItems& items = ItemsOn(0);
    ui::FormDriver(items).Click("mnuTotals");
    ui::Form* totals = app.FindForm("frmInvTotals");
    ASSERT_NE(totals, nullptr);
    EXPECT_TRUE(totals->Visible());
    EXPECT_EQ(totals->Caption, "Inventory Totals (Filtered)");
    // By item number, then warehouse name without regard to case; a negative stock stays.
    EXPECT_EQ(Shown("frmInvTotals"),
              (Rows{{"1001", "Bolts", "East Depot", "-2"}, {"1001", "Bolts", "Main", "1250.5"}}));

    // The totals' own History opens the movements of that item in that warehouse.
    ui::FormDriver(*totals).Click("mnuHistory");
    EXPECT_EQ(Shown("frmInvHistory"), (Rows{{"3/2017", "06 Mar 17", "1001", "Bolts", "Adjust", "-2",
                                             "", "East Depot", "Adjustment 1"}}));

    // Another item: the filter follows it, and an item that never moved has no row.
    ui::FormDriver(ItemsOn(1)).Click("mnuTotals");
    EXPECT_EQ(Shown("frmInvTotals"), (Rows{{"1002", "Nuts", "Main", "7"}}));
    ui::FormDriver(ItemsOn(2)).Click("mnuTotals");
    EXPECT_TRUE(Shown("frmInvTotals").empty());
}

TEST_F(InventoryLists, AnItemsHistoryShowsOnlyItsMovementsNewestFirst) {
    ui::FormDriver(ItemsOn(0)).Click("mnuHistory");
    ui::Form* history = app.FindForm("frmInvHistory");
    ASSERT_NE(history, nullptr);
    EXPECT_TRUE(history->Visible());
    EXPECT_EQ(history->Caption, "Inventory History (Filtered)");
    Rows rows = Shown("frmInvHistory");
    ASSERT_EQ(rows.size(), 3u);
    std::vector<std::string> types;
    for (const auto& row : rows) {
        EXPECT_EQ(row.at(2), "1001");
        types.push_back(row.at(4));
    }
    EXPECT_EQ(types, (std::vector<std::string>{"Adjust", "Sale", "PO Receipt"}));
}

TEST_F(InventoryLists, ARefusedRightOpensNeitherList) {
    forms.refused = {"InvTotals", "InvHistory"};
    ui::FormDriver d(ItemsOn(0));
    d.Click("mnuTotals");
    d.Click("mnuHistory");
    EXPECT_EQ(app.FindForm("frmInvTotals"), nullptr);
    EXPECT_EQ(app.FindForm("frmInvHistory"), nullptr);
}

TEST_F(InventoryLists, TheFiltersNarrowBothListsAndResetToEveryRow) {
    auto* totals = dynamic_cast<shell::ListForm*>(forms.OpenForm("frmInvTotals"));
    ASSERT_NE(totals, nullptr);
    totals->Show();
    EXPECT_EQ(Shown("frmInvTotals").size(), 3u);
    WhenModal("frmInvTotalsFilter", [](ui::FormDriver& f) {
        f.Choose("cboWarehouse", "Main");
        f.Choose("cboItemType", "Goods");
        f.Click("btnOK");
    });
    ui::FormDriver(*totals).Click("mnuFilter");
    EXPECT_EQ(totals->Caption, "Inventory Totals (Filtered)");
    EXPECT_EQ(Shown("frmInvTotals"),
              (Rows{{"1001", "Bolts", "Main", "1250.5"}, {"1002", "Nuts", "Main", "7"}}));
    WhenModal("frmInvTotalsFilter", [](ui::FormDriver& f) {
        f.Click("btnReset");
        f.Click("btnOK");
    });
    ui::FormDriver(*totals).Click("mnuFilter");
    EXPECT_EQ(totals->Caption, "Inventory Totals");
    EXPECT_EQ(Shown("frmInvTotals").size(), 3u);

    auto* history = dynamic_cast<shell::ListForm*>(forms.OpenForm("frmInvHistory"));
    ASSERT_NE(history, nullptr);
    history->Show();
    EXPECT_EQ(Shown("frmInvHistory").size(), 4u);
    WhenModal("frmInvHistoryFilter", [](ui::FormDriver& f) {
        EXPECT_EQ(f.Text("spnYear"), "<All>");
        EXPECT_FALSE(f.Enabled("spnYear"));
        f.Choose("cboTransactions", "PO Receipts");
        f.SetChecked("chkYearAll", false);
        EXPECT_EQ(f.Text("spnYear"), "1997");
        f.EnterText("spnYear", "2017");
        f.SetChecked("chkPeriodAll", false);
        EXPECT_EQ(f.Text("spnPeriod"), "1");
        f.EnterText("spnPeriod", "3");
        f.Click("btnOK");
    });
    ui::FormDriver(*history).Click("mnuFilter");
    EXPECT_EQ(history->MainDataSet().Filter(),
              "(TransType = 3) AND (GLYear = 2017) AND (GLPeriod = 3)");
    Rows receipts = Shown("frmInvHistory");
    ASSERT_EQ(receipts.size(), 2u);
    for (const auto& row : receipts)
        EXPECT_EQ(row.at(4), "PO Receipt");
    // A period with nothing in it leaves the list empty rather than unfiltered.
    WhenModal("frmInvHistoryFilter", [](ui::FormDriver& f) {
        f.EnterText("spnPeriod", "4");
        f.Click("btnOK");
    });
    ui::FormDriver(*history).Click("mnuFilter");
    EXPECT_TRUE(Shown("frmInvHistory").empty());
}

TEST_F(InventoryLists, TheItemsImportSavesAFileThroughTheFormOnlyWithTheRight) {
    inventory::TfrmItems& items = ItemsOn(0);
    forms.refused = {"Import"};
    ui::FormDriver(items).Click("mnuImport");
    EXPECT_EQ(app.FindForm("frmImport"), nullptr);
    forms.refused.clear();

    const std::string path = folder_.Path() + "/items.csv";
    InsertRow(
        "GLAccnt",
        {{"GLAccountID", 1}, {"GLAccount", "4000"}, {"AccountName", "Sales"}, {"AccountType", 3}});
    std::ofstream(path) << "ItemDescription,ItemTypeID,SalesGLAccountID,UnitPrice\n"
                           "Drill,1,1,99.95\n,1,1,5\n";
    WhenModal("frmImport", [&path, this](ui::FormDriver& f) {
        EXPECT_EQ(f.Text("cboTable"), "Items");
        EXPECT_FALSE(f.Enabled("cboTable"));
        f.EnterText("editFileName", path);
        f.Click("btnImport");
        EXPECT_EQ(dialogs.LastText(),
                  "Nothing has been imported.\nRow 2: Field 'Description' must have a value");
        f.SetChecked("chkSkipRefused", true);
        f.Click("btnImport");
    });
    ui::FormDriver(items).Click("mnuImport");
    EXPECT_EQ(dialogs.LastText(),
              "1 of 2 rows imported.\n\nRefused:\nRow 2: Field 'Description' must have a value");
    EXPECT_EQ(app.FindForm("frmImport"), nullptr);
    items.tblItem.Last();
    EXPECT_EQ(items.tblItem.FieldByName("ItemDescription").AsString(), "Drill");
    EXPECT_EQ(items.tblItem.FieldByName("ItemNo").AsString(), "1004");
}

} // namespace
} // namespace corvane::testing
