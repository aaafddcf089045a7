#pragma once

#include "shell/patterns/FilterForm.h"
#include "store/Table.h"
#include "ui/ComboBox.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Edit.h"

#include <optional>
#include <string>

namespace corvane::ledger {

class TfrmGLHistory;

// The history's conditions on its own fields (account, year, period, source) as the table's
// filter, and a type of account, which lives on the accounts and so is tested row by row.
class TfrmGLHistoryFilter : public shell::FilterForm {
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

    // Every choice back to <All>, without closing.
    void Clear();
    // The account and year of a totals row, put in force as if chosen here.
    void ApplyAccountYear(std::int64_t accountId, std::optional<int> year);
    // The table filter the choices give now; empty for none.
    std::string Expression() const;
    // The account type chosen, 0 for all.
    int AccountType() const;

private:
    struct Choices {
        int Type = 0;
        std::string Year;
        store::Value Account;
        int Period = 0;
        int Source = 0;
    };
    Choices Current() const;
    void Restore(const Choices& choices);
    void Apply();

    TfrmGLHistory& history_;
    Choices saved_;
};

} // namespace corvane::ledger
