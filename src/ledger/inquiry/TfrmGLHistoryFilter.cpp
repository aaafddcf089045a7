#include "ledger/inquiry/TfrmGLHistoryFilter.h"

#include "ledger/accounts/AccountTypes.h"
#include "ledger/inquiry/TfrmGLHistory.h"
#include "ledger/inquiry/WholeNumber.h"
#include "shell/patterns/FilterTerms.h"
#include "ui/Layout.h"

#include <algorithm>
#include <array>

namespace corvane::ledger {

namespace {

struct DocumentKind {
    const char* Label;
    const char* Source;
    const char* TransType;
};
constexpr std::array<DocumentKind, 6> kKinds{{
    {"AP Invoices", "AP", "Inv"},
    {"AP Payments", "AP", "Chq"},
    {"AR Invoices", "AR", "Inv"},
    {"AR Payments", "AR", "Pmt"},
    {"GL JVs", "GL", "JV"},
    {"Inv Adjustments", "IN", "Adj"},
}};

} // namespace

TfrmGLHistoryFilter::TfrmGLHistoryFilter(ui::Application& app, TfrmGLHistory& list)
    : ChoicesFilterForm(app, "frmGLHistoryFilter", list), tblGLAccnt(list.Db(), "GLAccnt"),
      history_(list) {
    using namespace ui;
    Caption = "Filter GL History";
    tblGLAccnt.Name = "tblGLAccnt";
    tblGLAccnt.Open();
    tblGLAccnt.SetIndexName("GLAccount");
    cboType.Items = {"<All>"};
    for (const std::string& label : AccountTypeLabels())
        cboType.Items.push_back(label);
    cboPeriod.Items = {"<All>"};
    for (int p = 1; p <= 12; ++p)
        cboPeriod.Items.push_back(std::to_string(p));
    cboSource.Items = {"<All>"};
    for (const DocumentKind& kind : kKinds)
        cboSource.Items.push_back(kind.Label);
    SetLayout(Column{
        FormRow{"Type:", cboType},
        FormRow{"Year:", editYear},
        FormRow{"Account:", cboAccount},
        FormRow{"Period:", cboPeriod},
        FormRow{"Source:", cboSource},
        ButtonRow{btnOK, btnCancel, btnReset},
    });

    Clear();
}

GLHistoryChoices TfrmGLHistoryFilter::Current() const {
    return {std::max(cboType.ItemIndex(), 0), editYear.Text(), cboAccount.KeyValue(),
            std::max(cboPeriod.ItemIndex(), 0), std::max(cboSource.ItemIndex(), 0)};
}

void TfrmGLHistoryFilter::Restore(const GLHistoryChoices& choices) {
    cboType.SetItemIndex(choices.Type);
    editYear.SetText(choices.Year);
    cboAccount.SetKeyValue(choices.Account);
    cboPeriod.SetItemIndex(choices.Period);
    cboSource.SetItemIndex(choices.Source);
}

int TfrmGLHistoryFilter::AccountType() const {
    int type = cboType.ItemIndex();
    return type >= atAsset && type <= atEquity ? type : 0;
}

std::string TfrmGLHistoryFilter::Expression() const {
    std::vector<std::string> terms;
    if (!cboAccount.KeyValue().IsNull())
        terms.push_back(shell::LookupTerm("GLAccountID", cboAccount.KeyValue().Int()));
    if (!editYear.Text().empty())
        terms.push_back(shell::LookupTerm("GLYear", WholeNumberOf(editYear.Text())));
    if (int period = cboPeriod.ItemIndex(); period >= 1)
        terms.push_back(shell::LookupTerm("GLPeriod", period));
    if (int source = cboSource.ItemIndex(); source >= 1) {
        const DocumentKind& kind = kKinds[static_cast<std::size_t>(source - 1)];
        terms.push_back("(Source = " + shell::QuoteFilterText(kind.Source) +
                        ") AND (TransType = " + shell::QuoteFilterText(kind.TransType) + ")");
    }
    return shell::JoinTerms(terms);
}

void TfrmGLHistoryFilter::ApplyChoices() {
    // A year that is no number raises here, before anything changes.
    std::string expression = Expression();
    history_.ApplyFilter(expression, !cboAccount.KeyValue().IsNull(), AccountType());
    SetModalResult(ui::mrOK);
}

void TfrmGLHistoryFilter::ApplyAccountYear(std::int64_t accountId, std::optional<int> year) {
    Clear();
    cboAccount.SetKeyValue(store::Value(accountId));
    if (year) editYear.SetText(std::to_string(*year));
    history_.ApplyFilter(Expression(), true, 0);
}

} // namespace corvane::ledger
