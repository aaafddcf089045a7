#include "shell/main/MainMenuEntries.h"

#include <array>
#include <cctype>

namespace corvane::shell {

namespace {

using K = OpenKind;

// The seven system menus under File; the Backup and Settings entries of General and the
// Companies menu are the main form's own.
constexpr std::array Entries{
    MainMenuEntry{"&AP, &Vendors", "Vendors", "", "frmVendors", K::List},
    MainMenuEntry{"&AP, &Invoices", "APInvoices", "AP Invoices", "frmAPInvoices", K::Outstanding,
                  "Owing <> 0", true},
    MainMenuEntry{"&AP, &Payments", "APCheques", "AP Payments", "frmAPCheques", K::List},
    MainMenuEntry{"&AP, &Other, Vendor &Types", "VendorTypes", "Vendor Types", "frmVendorTypes",
                  K::Plain},
    MainMenuEntry{"&AP, &Reports", "APReports", "AP Reports", "frmAPReports", K::Show},
    MainMenuEntry{"A&R, &Customers", "Customers", "", "frmCustomers", K::List},
    MainMenuEntry{"A&R, &Invoices", "ARInvoices", "AR Invoices", "frmARInvoices", K::List},
    MainMenuEntry{"A&R, &Payments", "ARPayments", "AR Payments", "frmARPayments", K::List},
    MainMenuEntry{"A&R, &Other, &Salesmen", "Salesmen", "", "frmSalesmen", K::Plain},
    MainMenuEntry{"A&R, &Other, Customer &Types", "CustomerTypes", "Customer Types", "frmCusTypes",
                  K::Plain},
    MainMenuEntry{"A&R, &Other, &Items", "Items", "", "frmItems", K::ListNoRefresh},
    MainMenuEntry{"A&R, &Other, Ta&xes", "Taxes", "", "frmTaxes", K::Plain},
    MainMenuEntry{"A&R, &Reports", "ARReports", "AR Reports", "frmARReports", K::Show},
    MainMenuEntry{"&GL, &Accounts", "GLAccounts", "GL Accounts", "frmGLAccounts", K::List},
    MainMenuEntry{"&GL, &JVs", "JVs", "", "frmJVs", K::List},
    MainMenuEntry{"&GL, &Budget", "GLBudget", "GL Budget", "frmGLBudget", K::PlainQueryList},
    MainMenuEntry{"&GL, &Totals", "GLBalances", "GL Totals", "frmGLBalances", K::PlainQueryList},
    MainMenuEntry{"&GL, &History", "GLHistory", "GL History", "frmGLHistory", K::List},
    MainMenuEntry{"&GL, &Reports", "GLReports", "GL Reports", "frmGLReports", K::Show},
    MainMenuEntry{"&Inventory, &Items", "Items", "", "frmItems", K::ListNoRefresh},
    MainMenuEntry{"&Inventory, &Receipts", "InvReceipts", "Inventory Receipts", "frmInvReceipts",
                  K::List},
    MainMenuEntry{"&Inventory, &Adjustments", "InvAdjustments", "Inventory Adjustments",
                  "frmInvAdjustments", K::List},
    MainMenuEntry{"&Inventory, &Other, Item &Types", "ItemTypes", "Item Types", "frmItemTypes",
                  K::Plain},
    MainMenuEntry{"&Inventory, &Other, Item &Subtypes", "ItemSubtypes", "Item Subtypes",
                  "frmItemSubtypes", K::Plain},
    MainMenuEntry{"&Inventory, &Other, &Warehouses", "Warehouses", "", "frmWarehouses", K::Plain},
    MainMenuEntry{"&Inventory, &Totals", "InvTotals", "Inventory Totals", "frmInvTotals",
                  K::FilterFirst},
    MainMenuEntry{"&Inventory, &History", "InvHistory", "Inventory History", "frmInvHistory",
                  K::List},
    MainMenuEntry{"&Inventory, &Reports", "InvReports", "Inventory Reports", "frmInvReports",
                  K::Show},
    MainMenuEntry{"&Time Billing, &Customers", "Customers", "", "frmCustomers", K::List},
    MainMenuEntry{"&Time Billing, &Jobs", "Jobs", "", "frmJobs", K::Outstanding,
                  "Completed = false"},
    MainMenuEntry{"&Time Billing, &Time Sheets", "TimeSheets", "Time Sheets", "frmTimeSheets",
                  K::Outstanding, "InvoiceNo = null"},
    MainMenuEntry{"&Time Billing, &Other, &Employees", "Employees", "", "frmEmployees", K::Plain},
    MainMenuEntry{"&Time Billing, &Other, &Task Types", "TaskTypes", "Task Types", "frmTaskTypes",
                  K::Plain},
    MainMenuEntry{"&Time Billing, &Reports", "TimeReports", "Time Billing Reports",
                  "frmTimeReports", K::Show},
    MainMenuEntry{"&Sales Analysis, &Charts", "SalesCharts", "Sales Charts", "frmSalesCharts",
                  K::Show},
    MainMenuEntry{"&Sales Analysis, &History", "SalesHistory", "Sales History", "frmSalesHistory",
                  K::FilterFirst},
    MainMenuEntry{"&Sales Analysis, &Reports", "SalesReports", "Sales Reports", "frmSalesReports",
                  K::Show},
    MainMenuEntry{"Ge&neral, &Your Company", "YourCompany", "Your Company", "frmCompany", K::Plain},
    MainMenuEntry{"Ge&neral, &Banks", "Banks", "", "frmBanks", K::Plain},
    MainMenuEntry{"Ge&neral, Bank B&ook", "BankBook", "Bank Book", "frmBankBook", K::Plain},
    MainMenuEntry{"Ge&neral, Bank &Reconciliation", "BankRec", "Bank Reconciliation", "frmBankRec",
                  K::Plain},
    MainMenuEntry{"Ge&neral, &Currencies", "Currencies", "", "frmCurrencies", K::Plain},
    MainMenuEntry{"Ge&neral, &Pack/Repair", "PackRepair", "Pack/Repair", "frmPack", K::Modal},
    MainMenuEntry{"Ge&neral, &Import", "Import", "", "frmImport", K::Modal},
    MainMenuEntry{"Ge&neral, &Security", "Security", "", "frmUsers", K::Plain},
    MainMenuEntry{"Ge&neral, Bac&kup, &Options...", "", "", "frmBackupOptions", K::Modal},
    MainMenuEntry{"Ge&neral, Bac&kup, &Backup...", "", "", "frmBackup", K::Modal},
    MainMenuEntry{"Ge&neral, P&urge Old Data", "Purge", "Purge Old Data", "frmPurge", K::Modal},
};

} // namespace

std::span<const MainMenuEntry> MainMenuEntries() {
    return Entries;
}

std::string MenuItemName(std::string_view path) {
    std::string name = "mnu";
    for (char c : path)
        if (std::isalnum(static_cast<unsigned char>(c))) name += c;
    return name;
}

} // namespace corvane::shell
