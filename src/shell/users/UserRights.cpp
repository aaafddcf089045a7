#include "shell/users/UserRights.h"

#include "core/Exception.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace corvane::shell {

namespace {

using P = RightsPage;

constexpr std::array kPages{
    RightsPageInfo{P::General, "General", "General"},
    RightsPageInfo{P::AP, "AP", "AP"},
    RightsPageInfo{P::AR, "AR", "AR"},
    RightsPageInfo{P::GL, "GL", "GL"},
    RightsPageInfo{P::Inventory, "Inventory", "Inventory"},
    RightsPageInfo{P::TimeBilling, "TimeBilling", "Time Billing"},
    RightsPageInfo{P::SalesAnalysis, "SalesAnalysis", "Sales Analysis"},
};

// The company-wide rights (banking, currencies, maintenance, security) stand on General; the
// others on the tab of the system whose menu they guard.
constexpr std::array kRights{
    UserRight{"YourCompany", "Your Company", P::General},
    UserRight{"Banks", "Banks", P::General},
    UserRight{"BankBook", "Bank Book", P::General},
    UserRight{"BankRec", "Bank Reconciliation", P::General},
    UserRight{"Currencies", "Currencies", P::General},
    UserRight{"PackRepair", "Pack/Repair", P::General},
    UserRight{"Import", "Import", P::General},
    UserRight{"Security", "Security", P::General},
    UserRight{"Purge", "Purge Old Data", P::General},

    UserRight{"Vendors", "Vendors", P::AP},
    UserRight{"APInvoices", "AP Invoices", P::AP},
    UserRight{"APCheques", "AP Payments", P::AP},
    UserRight{"APReports", "AP Reports", P::AP},
    UserRight{"VendorTypes", "Vendor Types", P::AP},

    UserRight{"Customers", "Customers", P::AR},
    UserRight{"ARInvoices", "AR Invoices", P::AR},
    UserRight{"ARPayments", "AR Payments", P::AR},
    UserRight{"ARReports", "AR Reports", P::AR},
    UserRight{"Salesmen", "Salesmen", P::AR},
    UserRight{"CustomerTypes", "Customer Types", P::AR},
    UserRight{"Taxes", "Taxes", P::AR},

    UserRight{"GLAccounts", "GL Accounts", P::GL},
    UserRight{"JVs", "JVs", P::GL},
    UserRight{"GLBudget", "GL Budget", P::GL},
    UserRight{"GLReports", "GL Reports", P::GL},
    UserRight{"GLBalances", "GL Totals", P::GL},
    UserRight{"GLHistory", "GL History", P::GL},

    UserRight{"Items", "Items", P::Inventory},
    UserRight{"InvReceipts", "Receipts", P::Inventory},
    UserRight{"InvAdjustments", "Adjustments", P::Inventory},
    UserRight{"InvReports", "Inventory Reports", P::Inventory},
    UserRight{"ItemTypes", "Item Types", P::Inventory},
    UserRight{"Warehouses", "Warehouses", P::Inventory},
    UserRight{"InvTotals", "Inventory Totals", P::Inventory},
    UserRight{"InvHistory", "Inventory History", P::Inventory},
    UserRight{"ItemSubtypes", "Item Subtypes", P::Inventory},

    UserRight{"Jobs", "Jobs", P::TimeBilling},
    UserRight{"TimeSheets", "Time Sheets", P::TimeBilling},
    UserRight{"TimeReports", "Time Reports", P::TimeBilling},
    UserRight{"Employees", "Employees", P::TimeBilling},
    UserRight{"TaskTypes", "Task Types", P::TimeBilling},

    UserRight{"SalesHistory", "Sales History", P::SalesAnalysis},
    UserRight{"SalesReports", "Sales Reports", P::SalesAnalysis},
    UserRight{"SalesCharts", "Sales Charts", P::SalesAnalysis},
};

bool SameName(std::string_view a, std::string_view b) {
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
        return std::tolower(static_cast<unsigned char>(x)) ==
               std::tolower(static_cast<unsigned char>(y));
    });
}

} // namespace

std::span<const UserRight> UserRights::All() {
    return kRights;
}

std::span<const RightsPageInfo> UserRights::Pages() {
    return kPages;
}

const RightsPageInfo& UserRights::PageInfo(RightsPage page) {
    for (const RightsPageInfo& info : kPages)
        if (info.Page == page) return info;
    throw Exception("Unknown page of rights");
}

const UserRight* UserRights::Find(std::string_view field) {
    auto found = std::find_if(kRights.begin(), kRights.end(),
                              [field](const UserRight& r) { return SameName(r.Field, field); });
    return found == kRights.end() ? nullptr : &*found;
}

} // namespace corvane::shell
