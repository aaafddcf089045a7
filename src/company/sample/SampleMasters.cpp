#include "company/sample/SampleMasters.h"

#include "company/wizard/StarterChart.h"
#include "core/Money.h"
#include "inventory/domain/InventoryMasters.h"
#include "inventory/domain/ItemRecord.h"
#include "receivables/domain/CustomerRecord.h"
#include "store/Database.h"
#include "store/Table.h"

#include <array>
#include <stdexcept>

namespace corvane::company {

namespace {

constexpr int kGst = 1, kPst = 2;
constexpr int kHome = 1, kUsDollars = 2;
constexpr int kRetail = 1, kWholesale = 2, kGovernment = 3;
constexpr int kAnn = 1, kTom = 2;
constexpr int kMain = 1, kEastDepot = 2;
constexpr int kAveragedStock = 3, kStandardStock = 4;
constexpr int kFasteners = 1, kTools = 2;

// Nobody waits at a sample's draws: a refusal would be a fault of the generator.
bool GiveUp(const std::string&) {
    return false;
}

void WriteTaxAndTypes(store::Database& db) {
    store::Table tax(db, "Tax");
    tax.Open();
    tax.Append();
    tax.FieldByName("TaxID").SetAsInteger(kPst);
    tax.FieldByName("TaxName").SetAsString("PST - Ontario");
    tax.FieldByName("Rate").SetAsFloat(8.0);
    tax.FieldByName("TaxCode").SetAsString("P");
    tax.FieldByName("TaxDescription").SetAsString("PST");
    tax.FieldByName("TaxGLAccountID").SetAsInteger(starter_account::SalesTaxPayable);
    tax.Post();

    store::Table types(db, "CusType");
    types.Open();
    for (auto [id, name] : {std::pair{kRetail, "Retail"}, std::pair{kWholesale, "Wholesale"},
                            std::pair{kGovernment, "Government"}}) {
        types.Append();
        types.FieldByName("CustomerTypeID").SetAsInteger(id);
        types.FieldByName("TypeName").SetAsString(name);
        types.Post();
    }
    store::Table salesmen(db, "Salesman");
    salesmen.Open();
    for (auto [id, first, last, phone] : {std::tuple{kAnn, "Ann", "Lee", "(613) 555-0150"},
                                          std::tuple{kTom, "Tom", "Ward", "(613) 555-0151"}}) {
        salesmen.Append();
        salesmen.FieldByName("SalesmanID").SetAsInteger(id);
        salesmen.FieldByName("FirstName").SetAsString(first);
        salesmen.FieldByName("LastName").SetAsString(last);
        salesmen.FieldByName("JobTitle").SetAsString("Sales Representative");
        salesmen.FieldByName("BusinessPhone").SetAsString(phone);
        salesmen.Post();
    }
}

struct SampleCustomer {
    const char* Name;
    const char* Address;
    const char* City;
    const char* Province;
    const char* Postal;
    const char* Country;
    const char* Phone;
    const char* Contact;
    int Currency;
    int Type;
    int Salesman;
    const char* PstExemption; // a number: exempt from PST
    bool Suspended;
};

constexpr std::array kCustomers{
    SampleCustomer{"Birch Lumber Ltd.", "88 Mill Road", "Kingston", "ON", "K7K 1A1", "Canada",
                   "(613) 555-0101", "Dana Birch", kHome, kWholesale, kAnn, "", false},
    SampleCustomer{"Aspen Homes", "12 Lakeshore Drive", "Toronto", "ON", "M5V 2T6", "Canada",
                   "(416) 555-0102", "Sam Aspen", kHome, kRetail, kTom, "", false},
    SampleCustomer{"City of Halvern", "1 Market Square", "Halvern", "ON", "K7L 2N4", "Canada",
                   "(613) 555-0103", "Purchasing Office", kHome, kGovernment, kAnn, "PST-44871",
                   false},
    SampleCustomer{"Maple Leaf Schools", "400 College Street", "Ottawa", "ON", "K1N 5N6", "Canada",
                   "(613) 555-0104", "Lee Grant", kHome, kGovernment, kTom, "PST-90210", false},
    SampleCustomer{"Northwind Traders", "500 Pine Avenue", "Ottawa", "ON", "K2P 1L4", "Canada",
                   "(613) 555-0105", "Jo Park", kHome, kRetail, kAnn, "", true},
    SampleCustomer{"Lakeside Marine Inc.", "77 Harbor Way", "Buffalo", "NY", "14202",
                   "United States", "(716) 555-0106", "Pat Reilly", kUsDollars, kWholesale, kTom,
                   "", false},
    SampleCustomer{"Great Plains Supply", "2100 Prairie Blvd", "Fargo", "ND", "58102",
                   "United States", "(701) 555-0107", "Chris Olsen", kUsDollars, kRetail, kAnn, "",
                   false},
};

void WriteCustomers(store::Database& db) {
    for (const SampleCustomer& c : kCustomers) {
        auto keys = receivables::DrawCustomerKeys(db, GiveUp);
        if (!keys) throw std::runtime_error("The sample's customer numbers could not be drawn.");
        store::Table t(db, "Customer");
        t.Open();
        t.Append();
        t.FieldByName("CustomerID").SetAsInteger(keys->CustomerID);
        t.FieldByName("CustomerNo").SetAsString(keys->CustomerNo);
        receivables::SetNewCustomerDefaults(db, t);
        t.FieldByName("CustomerName").SetAsString(c.Name);
        t.FieldByName("AddressLine1").SetAsString(c.Address);
        t.FieldByName("City").SetAsString(c.City);
        t.FieldByName("StateProv").SetAsString(c.Province);
        t.FieldByName("ZipCode").SetAsString(c.Postal);
        t.FieldByName("Country").SetAsString(c.Country);
        t.FieldByName("Phone").SetAsString(c.Phone);
        t.FieldByName("Contact").SetAsString(c.Contact);
        t.FieldByName("CurrencyID").SetAsInteger(c.Currency);
        t.FieldByName("CustomerTypeID").SetAsInteger(c.Type);
        t.FieldByName("SalesmanID").SetAsInteger(c.Salesman);
        t.FieldByName("NetDays").SetAsInteger(30);
        t.FieldByName("CreditLimit")
            .SetAsMoney(Money::FromWhole(c.Type == kWholesale ? 50000 : 15000));
        // Customers abroad pay no Canadian sales tax; at home GST and PST apply.
        if (c.Currency == kHome) {
            t.FieldByName("Tax1ID").SetAsInteger(kGst);
            t.FieldByName("Tax2ID").SetAsInteger(kPst);
            t.FieldByName("Tax2ExemptionNo").SetAsString(c.PstExemption);
        } else {
            t.FieldByName("Tax1ID").Clear();
        }
        t.FieldByName("Suspended").SetAsBoolean(c.Suspended);
        t.Post();
    }
}

void WriteInventoryMasters(store::Database& db) {
    store::Table warehouses(db, "Warehse");
    warehouses.Open();
    // The first warehouse is the one every new company starts with.
    warehouses.Append();
    warehouses.FieldByName("WarehouseID").SetAsInteger(kEastDepot);
    warehouses.FieldByName("WarehouseName").SetAsString("East Depot");
    warehouses.Post();
    store::Table types(db, "ItemType");
    types.Open();
    types.Append();
    types.FieldByName("ItemTypeID").SetAsInteger(kStandardStock);
    types.FieldByName("TypeName").SetAsString("Standard Stock");
    types.FieldByName("Inventory").SetAsBoolean(true);
    types.FieldByName("CostingMethod").SetAsInteger(inventory::kStandardCost);
    types.Post();
    store::Table subtypes(db, "ItemSubtype");
    subtypes.Open();
    for (auto [id, name, type] : {std::tuple{kFasteners, "Fasteners", kAveragedStock},
                                  std::tuple{kTools, "Tools", kStandardStock}}) {
        subtypes.Append();
        subtypes.FieldByName("ItemSubtypeID").SetAsInteger(id);
        subtypes.FieldByName("SubtypeName").SetAsString(name);
        subtypes.FieldByName("ItemTypeID").SetAsInteger(type);
        subtypes.Post();
    }
}

struct SampleItem {
    const char* Description;
    int Type;
    int Subtype;
    std::int64_t PriceCents;
    std::int64_t CostCents; // the average, or the standard
    double MainQty;
    double EastQty;
};

constexpr std::array kItems{
    SampleItem{"Hex Bolt 3/8 in. (box of 50)", kAveragedStock, kFasteners, 1899, 1025, 140, 60},
    SampleItem{"Wood Screw #8 (box of 100)", kAveragedStock, kFasteners, 1249, 610, 220, 85},
    SampleItem{"Anchor Kit", kAveragedStock, kFasteners, 2450, 1330, 35, 0},
    SampleItem{"Cordless Drill 18V", kStandardStock, kTools, 18999, 11250, 12, 8},
    SampleItem{"Mitre Saw 10 in.", kStandardStock, kTools, 32900, 20500, 4, 2},
    SampleItem{"Tool Belt", kStandardStock, kTools, 4595, 2100, 0, 25},
};

void WriteItems(store::Database& db) {
    for (const SampleItem& s : kItems) {
        auto keys = inventory::DrawItemKeys(db, GiveUp);
        if (!keys) throw std::runtime_error("The sample's item numbers could not be drawn.");
        store::Table t(db, "Item");
        t.Open();
        t.Append();
        t.FieldByName("ItemID").SetAsInteger(keys->ItemID);
        t.FieldByName("ItemNo").SetAsString(keys->ItemNo);
        inventory::SetNewItemDefaults(db, t);
        t.FieldByName("ItemDescription").SetAsString(s.Description);
        t.FieldByName("ItemTypeID").SetAsInteger(s.Type);
        t.FieldByName("ItemSubtypeID").SetAsInteger(s.Subtype);
        t.FieldByName("UnitPrice").SetAsMoney(Money::FromCents(s.PriceCents));
        const char* costField = s.Type == kStandardStock ? "StandardCost" : "WgtAvgCost";
        t.FieldByName(costField).SetAsMoney(Money::FromCents(s.CostCents));
        t.Post();
        store::Table balance(db, "IBalance");
        balance.Open();
        for (auto [warehouse, qty] :
             {std::pair{kMain, s.MainQty}, std::pair{kEastDepot, s.EastQty}}) {
            if (qty == 0) continue;
            balance.Append();
            balance.FieldByName("ItemID").SetAsInteger(keys->ItemID);
            balance.FieldByName("WarehouseID").SetAsInteger(warehouse);
            balance.FieldByName("QtyOnHand").SetAsFloat(qty);
            balance.Post();
        }
    }
}

} // namespace

void WriteSampleMasters(store::Database& db) {
    WriteTaxAndTypes(db);
    WriteCustomers(db);
    WriteInventoryMasters(db);
    WriteItems(db);
}

} // namespace corvane::company
