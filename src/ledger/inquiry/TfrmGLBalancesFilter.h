#pragma once

#include "shell/patterns/FilterForm.h"
#include "store/Table.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Edit.h"

#include <string>
#include <vector>

namespace corvane::ledger {

class TfrmGLBalances;

// Narrows the totals to a type of account, a year and subaccounts. Its choices become the WHERE
// line of the totals query, built only of numbers: the type's values, the year read as a number,
// the subaccounts' keys.
class TfrmGLBalancesFilter : public shell::FilterForm {
public:
    TfrmGLBalancesFilter(ui::Application& app, TfrmGLBalances& list);

    store::Table tblGLAcSub1, tblGLAcSub2, tblGLAcSub3;
    // "<All>", the five types, then the two pairs.
    ui::ComboBox cboType{*this, "cboType"};
    ui::Edit editYear{*this, "editYear"};
    ui::CheckBox chkYearAll{*this, "chkYearAll", "All"};
    ui::DBLookupComboBox cboSub1{*this, "cboSub1", tblGLAcSub1, "SubAccountID",
                                 "SubAccount;SubAccountName"};
    ui::DBLookupComboBox cboSub2{*this, "cboSub2", tblGLAcSub2, "SubAccountID",
                                 "SubAccount;SubAccountName"};
    ui::DBLookupComboBox cboSub3{*this, "cboSub3", tblGLAcSub3, "SubAccountID",
                                 "SubAccount;SubAccountName"};

    // Every choice back to <All>, without closing.
    void Clear();
    // The conditions the choices give now, each in parentheses; none when all are <All>.
    std::vector<std::string> Conditions() const;

private:
    struct Choices {
        int Type = 0;
        std::string Year;
        bool YearAll = true;
        store::Value Sub1, Sub2, Sub3;
    };
    Choices Current() const;
    void Restore(const Choices& choices);
    void YearAllClicked();
    void Apply();

    TfrmGLBalances& totals_;
    Choices saved_;
};

} // namespace corvane::ledger
