#include "ledger/vouchers/TfrmJVsFind.h"

#include "ui/Layout.h"

namespace corvane::ledger {

TfrmJVsFind::TfrmJVsFind(ui::Application& app, shell::ListForm& list)
    : FindForm(app, "frmJVsFind", list) {
    using namespace ui;
    Caption = "Find Journal Voucher";
    SetLayout(Column{
        FormRow{"JV no.:", editJVNumber},
        FormRow{"Description:", editDescription},
        ButtonRow{btnOK, btnCancel},
    });
    AddKeyEdit(editJVNumber, "JVNumber", "JVNumber");
    AddKeyEdit(editDescription, "TransDescription", "Description_PeriodJVNumberDESC");
}

} // namespace corvane::ledger
