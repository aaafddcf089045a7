#include "inventory/totals/TfrmInvTotalsFilter.h"

#include "inventory/totals/TfrmInvTotals.h"
#include "shell/lookups/TdmLookUps.h"
#include "shell/patterns/FilterTerms.h"
#include "ui/Layout.h"

namespace corvane::inventory {

TfrmInvTotalsFilter::TfrmInvTotalsFilter(ui::Application& app, TfrmInvTotals& list,
                                         shell::TdmLookUps& lookUps)
    : ChoicesFilterForm(app, "frmInvTotalsFilter", list), tblItem(list.Db(), "Item"),
      tblItemSubtype(list.Db(), "ItemSubtype"),
      cboItem(*this, "cboItem", tblItem, "ItemID", "ItemNo;ItemDescription"),
      cboWarehouse(*this, "cboWarehouse", lookUps.ListSource(shell::LookUp::Warehse), "WarehouseID",
                   "WarehouseName"),
      cboItemType(*this, "cboItemType", lookUps.ListSource(shell::LookUp::ItemType), "ItemTypeID",
                  "TypeName"),
      cboItemSubtype(*this, "cboItemSubtype", tblItemSubtype, "ItemSubtypeID", "SubtypeName"),
      totals_(list) {
    using namespace ui;
    lookUps.Open(shell::LookUp::Warehse, list.Db());
    lookUps.Open(shell::LookUp::ItemType, list.Db());
    tblItem.Name = "tblItem";
    tblItem.Open();
    tblItem.SetIndexName("ItemNo");
    tblItemSubtype.Name = "tblItemSubtype";
    tblItemSubtype.Open();
    tblItemSubtype.SetIndexName("SubtypeName1");
    Caption = "Filter Inventory Totals";
    SetLayout(Column{
        FormRow{"Item:", cboItem},
        FormRow{"Warehouse:", cboWarehouse},
        FormRow{"Item Type:", cboItemType},
        FormRow{"Item Subtype:", cboItemSubtype},
        ButtonRow{btnOK, btnCancel, btnReset},
    });
    cboItemType.OnChange = [this] { LimitSubtypes(); };

    Clear();
}

InvTotalsChoices TfrmInvTotalsFilter::Current() const {
    return {cboItem.KeyValue(), cboWarehouse.KeyValue(), cboItemType.KeyValue(),
            cboItemSubtype.KeyValue()};
}

void TfrmInvTotalsFilter::Restore(const InvTotalsChoices& choices) {
    cboItem.SetKeyValue(choices.Item);
    cboWarehouse.SetKeyValue(choices.Warehouse);
    cboItemType.SetKeyValue(choices.Type);
    LimitSubtypes();
    cboItemSubtype.SetKeyValue(choices.Subtype);
}

void TfrmInvTotalsFilter::LimitSubtypes() {
    // The subtypes offered are those of the type chosen.
    const store::Value type = cboItemType.KeyValue();
    tblItemSubtype.SetFilter(type.IsNull() ? std::string()
                                           : "ItemTypeID = " + std::to_string(type.Int()));
    tblItemSubtype.SetFiltered(!type.IsNull());
}

std::vector<std::string> TfrmInvTotalsFilter::Conditions() const {
    std::vector<std::string> terms;
    struct Term {
        const ui::DBLookupComboBox& Combo;
        const char* Field;
    };
    for (const Term& term :
         {Term{cboItem, "B.ItemID"}, Term{cboWarehouse, "B.WarehouseID"},
          Term{cboItemType, "ItemTypeID"}, Term{cboItemSubtype, "ItemSubtypeID"}})
        if (!term.Combo.KeyValue().IsNull())
            terms.push_back(shell::LookupTerm(term.Field, term.Combo.KeyValue().Int()));
    return terms;
}

void TfrmInvTotalsFilter::ApplyChoices() {
    const std::vector<std::string> conditions = Conditions();
    totals_.SetConditions(conditions);
    totals_.mnuFilter.SetChecked(!conditions.empty());
    totals_.ShowList();
    SetModalResult(ui::mrOK);
}

} // namespace corvane::inventory
