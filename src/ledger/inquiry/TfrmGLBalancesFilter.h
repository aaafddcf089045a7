#pragma once

#include "shell/patterns/ChoicesFilterForm.h"
#include "store/Table.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Edit.h"

#include <string>
#include <vector>

namespace corvane::ledger {

class TfrmGLBalances;

// What the dialog offers, as chosen; the default is every choice at <All>.
struct GLBalancesChoices {
    int Type = 0;
    std::string Year;
    bool YearAll = true;
    store::Value Sub1, Sub2, Sub3;
};

// Narrows the totals to a type of account, a year and subaccounts. Its choices become the WHERE
// line of the totals query, built only of numbers: the type's values, the year read as a number,
// the subaccounts' keys.
class TfrmGLBalancesFilter : public shell::ChoicesFilterForm<GLBalancesChoices> {
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

    // The conditions the choices give now, each in parentheses; none when all are <All>.
    std::vector<std::string> Conditions() const;

private:
    GLBalancesChoices Current() const override;
    void Restore(const GLBalancesChoices& choices) override;
    void YearAllClicked();
    void ApplyChoices() override;

    TfrmGLBalances& totals_;
};

} // namespace corvane::ledger
