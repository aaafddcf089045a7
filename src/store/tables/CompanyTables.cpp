#include "store/tables/CompanyTables.h"

#include <array>

namespace corvane::store::tables {

std::span<const TableDef* const> CompanyTables() {
    static const std::array<const TableDef*, 61> all{
        &APCheq(),      &APChqCtl(), &APInv(),    &APInvChq(), &APInvCtl(), &APInvDet(),
        &ARInv(),       &ARInvCtl(), &ARInvDet(), &ARInvPmt(), &ARPmt(),    &ARPmtCtl(),
        &Bank(),        &CBalance(), &CContact(), &Company(),  &Currency(), &CustCtl(),
        &Customer(),    &CusType(),  &Employee(), &FStmt(),    &FStmtCtl(), &FStmtLAc(),
        &FStmtLin(),    &FStmtLTo(), &GLAccnt(),  &GLAcSub1(), &GLAcSub2(), &GLAcSub3(),
        &GLActual(),    &GLBudget(), &GLHist(),   &IAdjDet(),  &IAdjust(),  &IBalance(),
        &IHist(),       &IRecDet(),  &IReceipt(), &Item(),     &ItemCtl(),  &ItemType(),
        &ItemSubtype(), &Job(),      &JobCtl(),   &JV(),       &JVCtl(),    &JVDet(),
        &Logo(),        &Salesman(), &Task(),     &TaskType(), &Tax(),      &TimeSht(),
        &Users(),       &VBalance(), &VContact(), &VendCtl(),  &Vendor(),   &VendType(),
        &Warehse(),
    };
    return all;
}

int CompanyTableSlot(std::string_view name) {
    auto all = CompanyTables();
    for (std::size_t i = 0; i < all.size(); ++i)
        if (SameName(all[i]->Name, name)) return static_cast<int>(i);
    return -1;
}

const TableDef* FindCompanyTable(std::string_view name) {
    int slot = CompanyTableSlot(name);
    return slot < 0 ? nullptr : CompanyTables()[static_cast<std::size_t>(slot)];
}

} // namespace corvane::store::tables
