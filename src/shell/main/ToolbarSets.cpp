#include "shell/main/ToolbarSets.h"

#include <array>

namespace corvane::shell {

namespace {

constexpr std::array Buttons{
    ToolbarButtonDef{"btnVendors", "Vendors", "&AP, &Vendors"},
    ToolbarButtonDef{"btnAPInvoices", "Invoices", "&AP, &Invoices"},
    ToolbarButtonDef{"btnCheques", "Payments", "&AP, &Payments"},
    ToolbarButtonDef{"btnCustomers", "Customers", "A&R, &Customers"},
    ToolbarButtonDef{"btnARInvoices", "Invoices", "A&R, &Invoices"},
    ToolbarButtonDef{"btnPayments", "Payments", "A&R, &Payments"},
    ToolbarButtonDef{"btnAccounts", "Accounts", "&GL, &Accounts"},
    ToolbarButtonDef{"btnJVs", "JVs", "&GL, &JVs"},
    ToolbarButtonDef{"btnBudget", "Budget", "&GL, &Budget"},
    ToolbarButtonDef{"btnItems", "Items", "&Inventory, &Items"},
    ToolbarButtonDef{"btnReceipts", "Receipts", "&Inventory, &Receipts"},
    ToolbarButtonDef{"btnAdjustments", "Adjustments", "&Inventory, &Adjustments"},
    ToolbarButtonDef{"btnJobs", "Jobs", "&Time Billing, &Jobs"},
    ToolbarButtonDef{"btnTimeSheets", "Time Sheets", "&Time Billing, &Time Sheets"},
    ToolbarButtonDef{"btnSalesCharts", "Charts", "&Sales Analysis, &Charts"},
    ToolbarButtonDef{"btnSalesHistory", "History", "&Sales Analysis, &History"},
};

const std::array<ToolbarSet, 6>& Sets() {
    static const std::array<ToolbarSet, 6> sets{
        ToolbarSet{"AP", {"btnVendors", "btnAPInvoices", "btnCheques"}, "&AP, &Reports"},
        ToolbarSet{"AR", {"btnCustomers", "btnARInvoices", "btnPayments"}, "A&R, &Reports"},
        ToolbarSet{"GL", {"btnAccounts", "btnJVs", "btnBudget"}, "&GL, &Reports"},
        ToolbarSet{
            "Inventory", {"btnItems", "btnReceipts", "btnAdjustments"}, "&Inventory, &Reports"},
        ToolbarSet{"Time Billing",
                   {"btnCustomers", "btnJobs", "btnTimeSheets"},
                   "&Time Billing, &Reports"},
        ToolbarSet{
            "Sales Analysis", {"btnSalesCharts", "btnSalesHistory"}, "&Sales Analysis, &Reports"},
    };
    return sets;
}

} // namespace

std::span<const ToolbarButtonDef> ToolbarButtons() {
    return Buttons;
}

std::span<const ToolbarSet> ToolbarSets() {
    return Sets();
}

const ToolbarSet* FindToolbarSet(std::string_view system) {
    for (const auto& set : Sets())
        if (set.System == system) return &set;
    return nullptr;
}

} // namespace corvane::shell
