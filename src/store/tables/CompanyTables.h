#pragma once

#include "store/TableDef.h"

#include <span>
#include <string_view>

namespace corvane::store::tables {

inline constexpr bool Required = true;

// The display formats of amounts: plain money with credits in parentheses, ledger amounts with
// credits marked CR, prices and costs to five places, hours.
inline constexpr const char* MoneyFormat = "#,###,##0.00#;(#,###,##0.00#)";
inline constexpr const char* LedgerFormat = "#,###,##0.00#;#,###,##0.00#CR";
inline constexpr const char* PriceFormat = "#,###,##0.00###;(#,###,##0.00###)";
inline constexpr const char* HoursFormat = "0.00#";
// Dates of documents and history lines; the other dates show in the regional short date.
inline constexpr const char* DateFormat = "dd mmm yy";

const TableDef& APCheq();
const TableDef& APChqCtl();
const TableDef& APInv();
const TableDef& APInvChq();
const TableDef& APInvCtl();
const TableDef& APInvDet();
const TableDef& ARInv();
const TableDef& ARInvCtl();
const TableDef& ARInvDet();
const TableDef& ARInvPmt();
const TableDef& ARPmt();
const TableDef& ARPmtCtl();
const TableDef& Bank();
const TableDef& CBalance();
const TableDef& CContact();
const TableDef& Company();
const TableDef& Currency();
const TableDef& CustCtl();
const TableDef& Customer();
const TableDef& CusType();
const TableDef& Employee();
const TableDef& FStmt();
const TableDef& FStmtCtl();
const TableDef& FStmtLAc();
const TableDef& FStmtLin();
const TableDef& FStmtLTo();
const TableDef& GLAccnt();
const TableDef& GLAcSub1();
const TableDef& GLAcSub2();
const TableDef& GLAcSub3();
const TableDef& GLActual();
const TableDef& GLBudget();
const TableDef& GLHist();
const TableDef& IAdjDet();
const TableDef& IAdjust();
const TableDef& IBalance();
const TableDef& IHist();
const TableDef& IRecDet();
const TableDef& IReceipt();
const TableDef& Item();
const TableDef& ItemCtl();
const TableDef& ItemType();
const TableDef& ItemSubtype();
const TableDef& Job();
const TableDef& JobCtl();
const TableDef& JV();
const TableDef& JVCtl();
const TableDef& JVDet();
const TableDef& Logo();
const TableDef& Salesman();
const TableDef& Task();
const TableDef& TaskType();
const TableDef& Tax();
const TableDef& TimeSht();
const TableDef& Users();
const TableDef& VBalance();
const TableDef& VContact();
const TableDef& VendCtl();
const TableDef& Vendor();
const TableDef& VendType();
const TableDef& Warehse();

// All tables of a company, in the order they are created.
std::span<const TableDef* const> CompanyTables();
// The company table of that name (case-insensitive), or null.
const TableDef* FindCompanyTable(std::string_view name);
// The position of the table in CompanyTables(), or -1.
int CompanyTableSlot(std::string_view name);

} // namespace corvane::store::tables
