#include "inventory/InventoryForms.h"

#include "banking/import/TfrmImport.h"
#include "banking/usage/FormRegistration.h"
#include "inventory/domain/ItemImport.h"
#include "inventory/history/TfrmInvHistory.h"
#include "inventory/items/TfrmItem.h"
#include "inventory/items/TfrmItemSearch.h"
#include "inventory/items/TfrmItems.h"
#include "inventory/masters/TfrmItemSubtype.h"
#include "inventory/masters/TfrmItemSubtypes.h"
#include "inventory/masters/TfrmItemType.h"
#include "inventory/masters/TfrmItemTypes.h"
#include "inventory/masters/TfrmWarehouse.h"
#include "inventory/masters/TfrmWarehouses.h"
#include "inventory/reports/TrptItems.h"
#include "inventory/totals/TfrmInvTotals.h"
#include "receivables/domain/CustomerImport.h"
#include "reports/run/ReportRegistry.h"
#include "shell/main/FormRegistry.h"
#include "ui/Application.h"

namespace corvane::inventory {

using banking::LookUpsFor;
using banking::RegisterListReport;
using banking::RegisterMaster;

void RegisterInventoryForms(shell::FormRegistry& registry) {
    RegisterMaster<TfrmItemTypes, TfrmItemType>(registry, "frmItemTypes", "frmItemType");
    RegisterMaster<TfrmItemSubtypes, TfrmItemSubtype>(registry, "frmItemSubtypes",
                                                      "frmItemSubtype");
    RegisterMaster<TfrmWarehouses, TfrmWarehouse>(registry, "frmWarehouses", "frmWarehouse");
    registry.Register("frmItems", [](shell::FormContext& ctx) -> ui::Form& {
        auto& list = ctx.App.SingleForm<TfrmItems>(ctx.Db, LookUpsFor(ctx));
        return list;
    });
    registry.Register("frmItem", [](shell::FormContext& ctx) -> ui::Form& {
        auto& entry = ctx.App.SingleForm<TfrmItem>(ctx.Db, LookUpsFor(ctx));
        return entry;
    });
    registry.Register("frmItemSearch", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmItemSearch>(ctx.Db);
    });
    registry.Register("frmInvTotals", [](shell::FormContext& ctx) -> ui::Form& {
        auto& list = ctx.App.SingleForm<TfrmInvTotals>(ctx.Db, LookUpsFor(ctx));
        return list;
    });
    registry.Register("frmInvHistory", [](shell::FormContext& ctx) -> ui::Form& {
        auto& list = ctx.App.SingleForm<TfrmInvHistory>(ctx.Db, LookUpsFor(ctx));
        return list;
    });
    // The data import serves the customers and the items; each list opens it on its own table.
    registry.Register("frmImport", [](shell::FormContext& ctx) -> ui::Form& {
        std::vector<banking::ImportChoice> choices{{"Customers", receivables::CustomerImport},
                                                   {"Items", ItemImport}};
        return ctx.App.CreateForm<banking::TfrmImport>(ctx.Db, std::move(choices));
    });
    RegisterListReport<TrptItems>(registry, "frmItems");
    RegisterListReport<TrptItemTypes>(registry, "frmItemTypes");
    RegisterListReport<TrptItemSubtypes>(registry, "frmItemSubtypes");
    RegisterListReport<TrptWarehouses>(registry, "frmWarehouses");
}

void RegisterInventoryReports(reports::ReportRegistry& registry) {
    registry.Register(
        "Items", "The items with prices and costs", [](store::Database& db, const auto&) {
            return std::unique_ptr<reports::TrptBase>(std::make_unique<TrptItems>(db));
        });
}

} // namespace corvane::inventory
