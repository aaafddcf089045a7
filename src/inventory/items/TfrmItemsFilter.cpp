#include "inventory/items/TfrmItemsFilter.h"

#include "shell/lookups/TdmLookUps.h"
#include "shell/patterns/ListForm.h"
#include "ui/Layout.h"

namespace corvane::inventory {

TfrmItemsFilter::TfrmItemsFilter(ui::Application& app, shell::ListForm& list,
                                 shell::TdmLookUps& lookUps)
    : FilterForm(app, "frmItemsFilter", list), tblItemSubtype(list.Db(), "ItemSubtype"),
      cboItemType(*this, "cboItemType", lookUps.ListSource(shell::LookUp::ItemType), "ItemTypeID",
                  "TypeName"),
      cboItemSubtype(*this, "cboItemSubtype", tblItemSubtype, "ItemSubtypeID", "SubtypeName") {
    using namespace ui;
    lookUps.Open(shell::LookUp::ItemType, list.Db());
    tblItemSubtype.SetIndexName("SubtypeName1");
    tblItemSubtype.Open();
    Caption = "Filter Items";
    SetLayout(Column{
        FormRow{"Item Type:", cboItemType},
        FormRow{"Item Subtype:", cboItemSubtype},
        rgpSuspended,
        ButtonRow{btnOK, btnCancel, btnReset},
    });
    AddLookupCriterion(cboItemType, "ItemTypeID");
    AddLookupCriterion(cboItemSubtype, "ItemSubtypeID");
    AddYesNoCriterion(rgpSuspended, "Suspended", 0, 1, 2);
    rgpSuspended.SetItemIndex(2);
    // The subtypes offered are those of the type chosen.
    cboItemType.OnChange = [this] {
        const store::Value type = cboItemType.KeyValue();
        tblItemSubtype.SetFilter(type.IsNull() ? std::string()
                                               : "ItemTypeID = " + std::to_string(type.Int()));
        tblItemSubtype.SetFiltered(!type.IsNull());
    };
}

} // namespace corvane::inventory
