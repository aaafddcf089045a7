#include "ledger/inquiry/TfrmGLBalancesFilter.h"

#include "ledger/accounts/AccountTypes.h"
#include "ledger/inquiry/TfrmGLBalances.h"
#include "ledger/inquiry/WholeNumber.h"
#include "shell/patterns/FilterTerms.h"
#include "ui/Layout.h"

#include <algorithm>

namespace corvane::ledger {

namespace {
// What the year box shows when All is unticked, until the user types a year of his own.
constexpr const char* kYearPlaceholder = "1997";
// The two pairs after the five types in the type box.
constexpr int kAssetOrLiability = 6;
constexpr int kRevenueOrExpense = 7;

std::string TypeTerm(int type) {
    return shell::LookupTerm("AccountType", type);
}
} // namespace

TfrmGLBalancesFilter::TfrmGLBalancesFilter(ui::Application& app, TfrmGLBalances& list)
    : ChoicesFilterForm(app, "frmGLBalancesFilter", list), tblGLAcSub1(list.Db(), "GLAcSub1"),
      tblGLAcSub2(list.Db(), "GLAcSub2"), tblGLAcSub3(list.Db(), "GLAcSub3"), totals_(list) {
    using namespace ui;
    Caption = "Filter GL Totals";
    int level = 1;
    for (store::Table* sub : {&tblGLAcSub1, &tblGLAcSub2, &tblGLAcSub3}) {
        sub->Name = "tblGLAcSub" + std::to_string(level++);
        sub->Open();
        sub->SetIndexName("SubAccount");
    }
    cboType.Items = {"<All>"};
    for (const std::string& label : AccountTypeLabels())
        cboType.Items.push_back(label);
    cboType.Items.push_back("Asset or Liability");
    cboType.Items.push_back("Revenue or Expense");
    SetLayout(Column{
        FormRow{"Type:", cboType},
        FormRow{"Year:", Row{editYear, chkYearAll}},
        FormRow{"Subaccount 1:", cboSub1},
        FormRow{"Subaccount 2:", cboSub2},
        FormRow{"Subaccount 3:", cboSub3},
        ButtonRow{btnOK, btnCancel, btnReset},
    });

    chkYearAll.OnClick = [this] { YearAllClicked(); };
    Clear();
}

GLBalancesChoices TfrmGLBalancesFilter::Current() const {
    return {std::max(cboType.ItemIndex(), 0),
            editYear.Text(),
            chkYearAll.Checked(),
            cboSub1.KeyValue(),
            cboSub2.KeyValue(),
            cboSub3.KeyValue()};
}

void TfrmGLBalancesFilter::Restore(const GLBalancesChoices& choices) {
    cboType.SetItemIndex(choices.Type);
    chkYearAll.OnClick = nullptr;
    chkYearAll.SetChecked(choices.YearAll);
    chkYearAll.OnClick = [this] { YearAllClicked(); };
    editYear.SetText(choices.Year);
    editYear.Enabled = !choices.YearAll;
    cboSub1.SetKeyValue(choices.Sub1);
    cboSub2.SetKeyValue(choices.Sub2);
    cboSub3.SetKeyValue(choices.Sub3);
}

void TfrmGLBalancesFilter::YearAllClicked() {
    bool all = chkYearAll.Checked();
    editYear.Enabled = !all;
    editYear.SetText(all ? std::string() : std::string(kYearPlaceholder));
}

std::vector<std::string> TfrmGLBalancesFilter::Conditions() const {
    std::vector<std::string> terms;
    int type = cboType.ItemIndex();
    if (type >= atAsset && type <= atEquity) {
        terms.push_back(TypeTerm(type));
    } else if (type == kAssetOrLiability) {
        terms.push_back("(" + TypeTerm(atAsset) + " OR " + TypeTerm(atLiability) + ")");
    } else if (type == kRevenueOrExpense) {
        terms.push_back("(" + TypeTerm(atRevenue) + " OR " + TypeTerm(atExpense) + ")");
    }
    if (!chkYearAll.Checked())
        terms.push_back(shell::LookupTerm("GLYear", WholeNumberOf(editYear.Text())));
    const char* fields[] = {"SubAccount1ID", "SubAccount2ID", "SubAccount3ID"};
    const ui::DBLookupComboBox* combos[] = {&cboSub1, &cboSub2, &cboSub3};
    for (int level = 0; level < 3; ++level)
        if (!combos[level]->KeyValue().IsNull())
            terms.push_back(shell::LookupTerm(fields[level], combos[level]->KeyValue().Int()));
    return terms;
}

void TfrmGLBalancesFilter::ApplyChoices() {
    // A year that is no number raises here, before anything changes.
    std::vector<std::string> conditions = Conditions();
    totals_.SetConditions(conditions);
    totals_.mnuFilter.SetChecked(!conditions.empty());
    totals_.ShowList();
    SetModalResult(ui::mrOK);
}

} // namespace corvane::ledger
