#include "inventory/items/TfrmItemSearch.h"

#include "ui/Layout.h"

namespace corvane::inventory {

TfrmItemSearch::TfrmItemSearch(ui::Application& app, store::Database& db)
    : SearchForm(app, "frmItemSearch", db, "Item", "ItemID"),
      cboItemType(AddTypeFilter("cboItemType", "ItemType", "ItemTypeID", "TypeName")) {
    using namespace ui;
    Caption = "Find Item";
    grdSearch.AddColumn("ItemNo", "Item no.", 90);
    grdSearch.AddColumn("ItemDescription", "Description", 240);
    SetLayout(Column{
        FormRow{"Item no.", editFindItemNo},
        FormRow{"Description", editFindItemDescription},
        FormRow{"Item Type", cboItemType},
        grdSearch,
        ButtonRow{btnOK, btnCancel, btnList},
    });
    AddSearchEdit(editFindItemNo, "ItemNo", "ItemNo");
    AddSearchEdit(editFindItemDescription, "ItemDescription", "ItemDescription1");
}

} // namespace corvane::inventory
