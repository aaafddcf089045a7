#pragma once

#include "shell/patterns/ChoicesFilterForm.h"
#include "store/Table.h"
#include "ui/ComboBox.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Edit.h"

#include <optional>
#include <string>

namespace corvane::ledger {

class TfrmGLHistory;

// What the dialog offers, as chosen; the default is every choice at <All>.
struct GLHistoryChoices {
    int Type = 0;
    std::string Year;
    store::Value Account;
    int Period = 0;
    int Source = 0;
};

// The history's conditions on its own fields (account, year, period, source) as the table's
// filter, and a type of account, which lives on the accounts and so is tested row by row.
class TfrmGLHistoryFilter : public shell::ChoicesFilterForm<GLHistoryChoices> {
public:
    TfrmGLHistoryFilter(ui::Application& app, TfrmGLHistory& list);

    store::Table tblGLAccnt;
    // "<All>" and the five types, in the order of their values.
    ui::ComboBox cboType{*this, "cboType"};
    ui::Edit editYear{*this, "editYear"};
    ui::DBLookupComboBox cboAccount{*this, "cboAccount", tblGLAccnt, "GLAccountID",
                                    "GLAccount;AccountName"};
    // "<All>" and 1 to 12.
    ui::ComboBox cboPeriod{*this, "cboPeriod"};
    // "<All>" and the six kinds of document.
    ui::ComboBox cboSource{*this, "cboSource"};

    // The account and year of a totals row, put in force as if chosen here.
    void ApplyAccountYear(std::int64_t accountId, std::optional<int> year);
    // The table filter the choices give now; empty for none.
    std::string Expression() const;
    // The account type chosen, 0 for all.
    int AccountType() const;

private:
    GLHistoryChoices Current() const override;
    void Restore(const GLHistoryChoices& choices) override;
    void ApplyChoices() override;

    TfrmGLHistory& history_;
};

} // namespace corvane::ledger
