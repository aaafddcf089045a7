#pragma once

#include "store/Database.h"
#include "store/Table.h"

#include <array>
#include <functional>
#include <memory>
#include <string_view>

namespace corvane::shell {

// The master tables that look-up lists choose from.
enum class LookUp {
    Tax,
    Salesman,
    CusType,
    Currency,
    Item,
    Customer,
    GLAccnt,
    Vendor,
    Bank,
    Employee,
    TaskType,
    Job,
    TimeSht,
    Task,
    ItemType,
    Warehse,
    Logo,
    GLAcSub1,
    GLAcSub2,
    GLAcSub3,
    VendType,
    ItemSubtype,
};
inline constexpr std::size_t LookUpCount = 22;

struct LookUpTable {
    std::string_view ComponentName; // "tblTax"
    std::string_view TableName;     // "Tax"
    std::string_view IndexName;     // the order of its lists; empty for the primary index
};

// The one data module of look-up cursors (dmLookUps): a cursor per master table, in the order
// its lists are shown, shared by every form that offers a choice from that table or reads a name
// quickly. It lives for the whole run while companies come and go, so its cursors do not: each is
// made on the database of the moment when it is opened and dropped at a company change, and the
// first form after the change opens what it needs in the new company.
//
// A cursor here is shared: a form must not leave a filter or a range on it.
class TdmLookUps {
public:
    TdmLookUps();
    ~TdmLookUps();
    TdmLookUps(const TdmLookUps&) = delete;
    TdmLookUps& operator=(const TdmLookUps&) = delete;

    static const LookUpTable& Definition(LookUp which);

    // The cursor, opened on db if it is closed or was made on another database; a cursor that is
    // open stays where it is.
    store::Table& Open(LookUp which, store::Database& db);
    // Opens every cursor that is closed.
    void OpenIfClosed(store::Database& db);
    // The cursor as it stands (perhaps closed); null when it has not been made since the last
    // company change.
    store::Table* Cursor(LookUp which) const;
    bool IsOpen(LookUp which) const;
    // After a form added or changed a row of the master table, so that the lists show it.
    void RefreshIfOpen(LookUp which);
    // At a company change: closes and drops every cursor.
    void CloseAll();

    // What a look-up combo shows its list from: whatever cursor is current when the combo reads,
    // so that a combo made before a company change follows the cursor made after it.
    std::function<store::DataSet*()> ListSource(LookUp which) const;

    store::Table& tblTax(store::Database& db) { return Open(LookUp::Tax, db); }
    store::Table& tblSalesman(store::Database& db) { return Open(LookUp::Salesman, db); }
    store::Table& tblCusType(store::Database& db) { return Open(LookUp::CusType, db); }
    store::Table& tblCurrency(store::Database& db) { return Open(LookUp::Currency, db); }
    store::Table& tblItem(store::Database& db) { return Open(LookUp::Item, db); }
    store::Table& tblCustomer(store::Database& db) { return Open(LookUp::Customer, db); }
    store::Table& tblGLAccnt(store::Database& db) { return Open(LookUp::GLAccnt, db); }
    store::Table& tblVendor(store::Database& db) { return Open(LookUp::Vendor, db); }
    store::Table& tblBank(store::Database& db) { return Open(LookUp::Bank, db); }
    store::Table& tblEmployee(store::Database& db) { return Open(LookUp::Employee, db); }
    store::Table& tblTaskType(store::Database& db) { return Open(LookUp::TaskType, db); }
    store::Table& tblJob(store::Database& db) { return Open(LookUp::Job, db); }
    store::Table& tblTimeSht(store::Database& db) { return Open(LookUp::TimeSht, db); }
    store::Table& tblTask(store::Database& db) { return Open(LookUp::Task, db); }
    store::Table& tblItemType(store::Database& db) { return Open(LookUp::ItemType, db); }
    store::Table& tblWarehse(store::Database& db) { return Open(LookUp::Warehse, db); }
    store::Table& tblLogo(store::Database& db) { return Open(LookUp::Logo, db); }
    store::Table& tblGLAcSub1(store::Database& db) { return Open(LookUp::GLAcSub1, db); }
    store::Table& tblGLAcSub2(store::Database& db) { return Open(LookUp::GLAcSub2, db); }
    store::Table& tblGLAcSub3(store::Database& db) { return Open(LookUp::GLAcSub3, db); }
    store::Table& tblVendType(store::Database& db) { return Open(LookUp::VendType, db); }
    store::Table& tblItemSubtype(store::Database& db) { return Open(LookUp::ItemSubtype, db); }

private:
    std::unique_ptr<store::Table> Make(LookUp which, store::Database& db) const;

    std::array<std::unique_ptr<store::Table>, LookUpCount> cursors_;
};

} // namespace corvane::shell
