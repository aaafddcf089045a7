#include "shell/lookups/TdmLookUps.h"

#include "shell/lookups/LookUpCalcFields.h"

namespace corvane::shell {

namespace {

// In the order of LookUp.
constexpr std::array<LookUpTable, LookUpCount> Tables{{
    {"tblTax", "Tax", "TaxName1"},
    {"tblSalesman", "Salesman", "FullName"},
    {"tblCusType", "CusType", "TypeName1"},
    {"tblCurrency", "Currency", "CurrencyName1"},
    {"tblItem", "Item", ""},
    {"tblCustomer", "Customer", ""},
    {"tblGLAccnt", "GLAccnt", "AccountName1"},
    {"tblVendor", "Vendor", ""},
    {"tblBank", "Bank", "BankName1"},
    {"tblEmployee", "Employee", "EmployeeName1"},
    {"tblTaskType", "TaskType", "TypeName1"},
    {"tblJob", "Job", "JobName1"},
    {"tblTimeSht", "TimeSht", ""},
    {"tblTask", "Task", ""},
    {"tblItemType", "ItemType", "TypeName1"},
    {"tblWarehse", "Warehse", "WarehouseName1"},
    {"tblLogo", "Logo", ""},
    {"tblGLAcSub1", "GLAcSub1", "SubAccountName1"},
    {"tblGLAcSub2", "GLAcSub2", "SubAccountName1"},
    {"tblGLAcSub3", "GLAcSub3", "SubAccountName1"},
    {"tblVendType", "VendType", "TypeName1"},
    {"tblItemSubtype", "ItemSubtype", "SubtypeName1"},
}};

std::size_t Slot(LookUp which) {
    return static_cast<std::size_t>(which);
}

} // namespace

TdmLookUps::TdmLookUps() = default;

TdmLookUps::~TdmLookUps() {
    CloseAll();
}

const LookUpTable& TdmLookUps::Definition(LookUp which) {
    return Tables.at(Slot(which));
}

std::unique_ptr<store::Table> TdmLookUps::Make(LookUp which, store::Database& db) const {
    const LookUpTable& def = Definition(which);
    auto table = std::make_unique<store::Table>(db, std::string(def.TableName));
    table->Name = std::string(def.ComponentName);
    table->SetIndexName(std::string(def.IndexName));
    if (which == LookUp::Salesman) AddSalesmanFullName(*table);
    if (which == LookUp::Customer || which == LookUp::Vendor) AddOneLineAddress(*table);
    return table;
}

store::Table& TdmLookUps::Open(LookUp which, store::Database& db) {
    std::unique_ptr<store::Table>& cursor = cursors_.at(Slot(which));
    if (cursor && cursor->Active() && &cursor->OwnerDatabase() == &db) return *cursor;
    // A closed cursor may belong to a database that has since been closed or replaced; a fresh
    // one on db is simpler than finding out.
    cursor.reset();
    cursor = Make(which, db);
    cursor->Open();
    return *cursor;
}

void TdmLookUps::OpenIfClosed(store::Database& db) {
    for (std::size_t i = 0; i < LookUpCount; ++i)
        Open(static_cast<LookUp>(i), db);
}

store::Table* TdmLookUps::Cursor(LookUp which) const {
    return cursors_.at(Slot(which)).get();
}

bool TdmLookUps::IsOpen(LookUp which) const {
    const store::Table* cursor = Cursor(which);
    return cursor && cursor->Active();
}

void TdmLookUps::RefreshIfOpen(LookUp which) {
    if (IsOpen(which)) Cursor(which)->Refresh();
}

void TdmLookUps::CloseAll() {
    for (auto& cursor : cursors_)
        cursor.reset();
}

std::function<store::DataSet*()> TdmLookUps::ListSource(LookUp which) const {
    return [this, which]() -> store::DataSet* { return Cursor(which); };
}

} // namespace corvane::shell
