#pragma once

#include "shell/patterns/FilterForm.h"
#include "store/Table.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/SpinEdit.h"

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

class TfrmInvHistory;

// Narrows the history to one item, one warehouse, one kind of movement, one year and one period.
// Year and period each have an All box; unticking it puts a start value in the box to step from.
class TfrmInvHistoryFilter : public shell::FilterForm {
public:
    TfrmInvHistoryFilter(ui::Application& app, TfrmInvHistory& list, shell::TdmLookUps& lookUps);

    store::Table tblItem;
    ui::DBLookupComboBox cboItem;
    ui::DBLookupComboBox cboWarehouse;
    // "<All>", "Adjustments", "Sales", "PO Receipts": the movement types 1 to 3.
    ui::ComboBox cboTransactions{*this, "cboTransactions"};
    ui::SpinEdit spnYear{*this, "spnYear"};
    ui::CheckBox chkYearAll{*this, "chkYearAll", "All"};
    ui::SpinEdit spnPeriod{*this, "spnPeriod"};
    ui::CheckBox chkPeriodAll{*this, "chkPeriodAll", "All"};
};

} // namespace corvane::inventory
