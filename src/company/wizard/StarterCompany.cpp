#include "company/wizard/StarterCompany.h"

#include "company/wizard/StarterChart.h"
#include "shell/main/TfrmCorvane.h"
#include "store/Table.h"

#include <array>
#include <string>
#include <vector>

namespace corvane::company {

namespace {

namespace account = starter_account;

constexpr int kCompanyNo = 1;
constexpr int kCurrencyId = 1;
constexpr int kBankId = 1;
constexpr int kTaxId = 1;

// Shown on every invoice until the company writes its own; it says where that is done.
constexpr const char* kInvoiceMessage =
    "You can specify a message from your company to go here.\n"
    "Use this for banking info, legal info, promo text, etc.\n"
    "On the AR Invoices list: menu File | Invoice Print Setup...\n"
    "\n"
    "You can also select a logo to be printed at the top left.";

constexpr int kItemTypeSundry = 1, kItemTypeLabor = 2, kItemTypeInventory = 3;
constexpr int kAverageCosting = 1;

std::vector<std::string> AddressLines(const std::string& address) {
    std::vector<std::string> lines;
    std::size_t start = 0;
    while (lines.size() < 3 && start <= address.size()) {
        std::size_t end = address.find('\n', start);
        if (end == std::string::npos) end = address.size();
        std::string line = address.substr(start, end - start);
        if (!line.empty() && line.back() == '\r') line.pop_back();
        lines.push_back(line);
        start = end + 1;
    }
    return lines;
}

void SetText(store::Table& t, const char* field, const std::string& text) {
    if (!text.empty()) t.FieldByName(field).SetAsString(text);
}

// Steps 1 to 11 of a new company, each table in its turn.
class StarterRows {
public:
    StarterRows(store::Database& db, const StarterAnswers& answers)
        : db_(db), answers_(answers), hasTax_(!answers.TaxName.empty()),
          taxCode_(hasTax_ ? answers.TaxName.substr(0, 1) : std::string()) {}

    void WriteAll() {
        WriteChart();
        WriteCurrency();
        WriteCompany();
        WriteBank();
        if (hasTax_) WriteTax();
        WriteWarehouse();
        WriteItemTypes();
        WriteItemControl();
        WriteItems();
        WriteCustomerControl();
        WriteCashCustomer();
    }

private:
    void WriteChart() {
        store::Table t(db_, "GLAccnt");
        t.Open();
        for (const StarterAccount& a : StarterChart()) {
            t.Append();
            t.FieldByName("GLAccountID").SetAsInteger(a.Id);
            t.FieldByName("GLAccount").SetAsString(a.Number);
            t.FieldByName("AccountName").SetAsString(a.Name ? a.Name : answers_.BankName);
            t.FieldByName("AccountType").SetAsInteger(a.Type);
            t.FieldByName("RetainedEarnings").SetAsBoolean(a.RetainedEarnings);
            t.FieldByName("Suspended").SetAsBoolean(false);
            t.Post();
        }
    }

    void WriteCurrency() {
        store::Table t(db_, "Currency");
        t.Open();
        t.Append();
        t.FieldByName("CurrencyID").SetAsInteger(kCurrencyId);
        t.FieldByName("CurrencyName").SetAsString(answers_.CurrencyName);
        t.FieldByName("APGLAccountID").SetAsInteger(account::Payables);
        t.FieldByName("APDiscGLAccountID").SetAsInteger(account::PurchaseDiscounts);
        t.FieldByName("ARGLAccountID").SetAsInteger(account::Receivables);
        t.FieldByName("ARDiscGLAccountID").SetAsInteger(account::CashDiscounts);
        t.FieldByName("DfltWriteOffGLAccountID").SetAsInteger(account::CashDiscounts);
        t.Post();
    }

    void WriteCompany() {
        store::Table t(db_, "Company");
        t.Open();
        t.Append();
        t.FieldByName("CompanyNo").SetAsInteger(kCompanyNo);
        t.FieldByName("CompanyName").SetAsString(answers_.CompanyName);
        t.FieldByName("FiscalYear").SetAsInteger(answers_.FiscalYear);
        const std::vector<std::string> lines = AddressLines(answers_.Address);
        static constexpr std::array kAddressFields{"AddressLine1", "AddressLine2", "AddressLine3"};
        for (std::size_t i = 0; i < lines.size(); ++i)
            SetText(t, kAddressFields[i], lines[i]);
        t.FieldByName("APInvPONumbers").SetAsBoolean(true);
        t.FieldByName("APInvDescriptions").SetAsBoolean(true);
        t.FieldByName("ARInvoiceCopies").SetAsInteger(1);
        t.FieldByName("ApplicationVersion").SetAsString(shell::TfrmCorvane::VersionMark);
        t.FieldByName("DfltSalesGLAccountID").SetAsInteger(account::Sales);
        t.FieldByName("DfltCOGSGLAccountID").SetAsInteger(account::CostOfGoodsSold);
        t.FieldByName("DfltInventoryGLAccountID").SetAsInteger(account::Inventory);
        t.FieldByName("DefaultCurrencyID").SetAsInteger(kCurrencyId);
        if (hasTax_) t.FieldByName("DfltTax1ID").SetAsInteger(kTaxId);
        t.FieldByName("ARInvoiceMessage").SetAsString(kInvoiceMessage);
        t.Post();
    }

    void WriteBank() {
        store::Table t(db_, "Bank");
        t.Open();
        t.Append();
        t.FieldByName("BankID").SetAsInteger(kBankId);
        t.FieldByName("BankName").SetAsString(answers_.BankName);
        t.FieldByName("BankGLAccountID").SetAsInteger(account::Bank);
        t.FieldByName("CurrencyID").SetAsInteger(kCurrencyId);
        t.Post();
    }

    void WriteTax() {
        store::Table t(db_, "Tax");
        t.Open();
        t.Append();
        t.FieldByName("TaxID").SetAsInteger(kTaxId);
        t.FieldByName("TaxName").SetAsString(answers_.TaxName);
        t.FieldByName("Rate").SetAsFloat(answers_.TaxRate);
        t.FieldByName("TaxCode").SetAsString(taxCode_);
        t.FieldByName("TaxDescription").SetAsString(answers_.TaxName);
        t.FieldByName("TaxGLAccountID").SetAsInteger(account::SalesTaxPayable);
        t.Post();
    }

    void WriteWarehouse() {
        store::Table t(db_, "Warehse");
        t.Open();
        t.Append();
        t.FieldByName("WarehouseID").SetAsInteger(1);
        t.FieldByName("WarehouseName").SetAsString("Our Warehouse");
        t.Post();
    }

    void WriteItemTypes() {
        store::Table t(db_, "ItemType");
        t.Open();
        struct TypeRow {
            int Id;
            const char* Name;
            bool Inventory;
        };
        static constexpr std::array kTypes{
            TypeRow{kItemTypeSundry, "Sundry non-inventory", false},
            TypeRow{kItemTypeLabor, "Labor", false},
            TypeRow{kItemTypeInventory, "Inventory", true},
        };
        for (const TypeRow& type : kTypes) {
            t.Append();
            t.FieldByName("ItemTypeID").SetAsInteger(type.Id);
            t.FieldByName("TypeName").SetAsString(type.Name);
            t.FieldByName("Inventory").SetAsBoolean(type.Inventory);
            // Only stock has a cost to follow.
            if (type.Inventory) t.FieldByName("CostingMethod").SetAsInteger(kAverageCosting);
            t.Post();
        }
    }

    void WriteItemControl() {
        store::Table t(db_, "ItemCtl");
        t.Open();
        t.Append();
        t.FieldByName("NextItemID").SetAsInteger(10003);
        t.FieldByName("NextItemNo").SetAsInteger(1004);
        t.Post();
    }

    void WriteItems() {
        store::Table t(db_, "Item");
        t.Open();
        struct ItemRow {
            int Id;
            const char* No;
            const char* Description;
            int Type;
            int Sales;
            int Cost;
            int Stock;
        };
        // Zero leaves the account empty: only stock has a cost and an inventory account.
        static constexpr std::array kItems{
            ItemRow{10000, "1001", "Miscellaneous", kItemTypeInventory, account::Sales,
                    account::CostOfGoodsSold, account::Inventory},
            ItemRow{10001, "1002", "Labor", kItemTypeLabor, account::Sales, 0, 0},
            ItemRow{10002, "1003", "Freight", kItemTypeSundry, account::Freight, 0, 0},
        };
        for (const ItemRow& item : kItems) {
            t.Append();
            t.FieldByName("ItemID").SetAsInteger(item.Id);
            t.FieldByName("ItemNo").SetAsString(item.No);
            t.FieldByName("ItemDescription").SetAsString(item.Description);
            t.FieldByName("ItemTypeID").SetAsInteger(item.Type);
            t.FieldByName("SalesGLAccountID").SetAsInteger(item.Sales);
            if (item.Cost) t.FieldByName("COGSGLAccountID").SetAsInteger(item.Cost);
            if (item.Stock) t.FieldByName("InventoryGLAccountID").SetAsInteger(item.Stock);
            if (hasTax_) t.FieldByName("TaxCodes").SetAsString(taxCode_);
            t.FieldByName("Suspended").SetAsBoolean(false);
            t.Post();
        }
    }

    void WriteCustomerControl() {
        store::Table t(db_, "CustCtl");
        t.Open();
        t.Append();
        t.FieldByName("NextCustomerID").SetAsInteger(10001);
        t.FieldByName("NextCustomerNo").SetAsInteger(1001);
        t.Post();
    }

    // The customer of cash sales at the counter.
    void WriteCashCustomer() {
        store::Table t(db_, "Customer");
        t.Open();
        t.Append();
        t.FieldByName("CustomerID").SetAsInteger(10000);
        t.FieldByName("CustomerNo").SetAsString("0");
        t.FieldByName("CustomerName").SetAsString("Miscellaneous Cash");
        if (hasTax_) t.FieldByName("Tax1ID").SetAsInteger(kTaxId);
        t.FieldByName("CurrencyID").SetAsInteger(kCurrencyId);
        t.FieldByName("COD").SetAsBoolean(true);
        for (const char* field : {"Prepayment", "Suspended", "PrintStatement", "AllowBackorders"})
            t.FieldByName(field).SetAsBoolean(false);
        t.Post();
    }

    store::Database& db_;
    const StarterAnswers& answers_;
    const bool hasTax_;
    const std::string taxCode_;
};

} // namespace

void CreateStarterCompany(store::Database& db, const StarterAnswers& answers) {
    StarterRows(db, answers).WriteAll();
}

} // namespace corvane::company
