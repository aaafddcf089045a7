#include "ledger/vouchers/TfrmJVsFilter.h"

#include "ui/Layout.h"

namespace corvane::ledger {

TfrmJVsFilter::TfrmJVsFilter(ui::Application& app, shell::ListForm& list)
    : FilterForm(app, "frmJVsFilter", list) {
    using namespace ui;
    Caption = "Filter Journal Vouchers";
    rgPosted.Columns = 3;
    SetLayout(Column{
        FormRow{"Description:", editDescription},
        FormRow{"Source:", editSource},
        rgPosted,
        ButtonRow{btnOK, btnCancel, btnReset},
    });
    AddTextCriterion(editDescription, "TransDescription");
    AddTextCriterion(editSource, "Source");
    AddYesNoCriterion(rgPosted, "Posted", 0, 1, 2);
}

} // namespace corvane::ledger
