#pragma once

#include "shell/patterns/FilterForm.h"
#include "store/Table.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

// Narrows the items to one type, one subtype of it, and the suspended or the active ones.
class TfrmItemsFilter : public shell::FilterForm {
public:
    TfrmItemsFilter(ui::Application& app, shell::ListForm& list, shell::TdmLookUps& lookUps);

    store::Table tblItemSubtype;
    ui::DBLookupComboBox cboItemType;
    ui::DBLookupComboBox cboItemSubtype;
    ui::RadioGroup rgpSuspended{*this, "rgpSuspended", "Suspended", {"&Yes", "&No", "&All"}};
};

} // namespace corvane::inventory
