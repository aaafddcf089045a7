#include "timebilling/forms/OutstandingView.h"

#include "shell/patterns/FilterForm.h"
#include "shell/patterns/ListForm.h"

namespace corvane::timebilling {

OutstandingView::OutstandingView(shell::ListForm& list, std::string condition)
    : list_(list), condition_(std::move(condition)) {
    list_.mnuOutstanding.Visible = true;
}

std::string OutstandingView::Caption(const std::string& title, bool outstanding, bool filtered) {
    if (outstanding && filtered) return title + " (Outstanding, Filtered)";
    if (outstanding) return title + " (Outstanding)";
    if (filtered) return title + " (Filtered)";
    return title;
}

void OutstandingView::Apply(const shell::FilterForm* filter) {
    const std::string criteria = filter ? filter->Expression() : std::string();
    const bool outstanding = list_.mnuOutstanding.Checked();
    std::string expression = criteria;
    if (outstanding)
        expression = criteria.empty() ? condition_ : criteria + " AND (" + condition_ + ")";
    store::DataSet& rows = list_.MainDataSet();
    if (expression.empty()) {
        rows.SetFiltered(false);
    } else {
        rows.SetFilter(expression);
        rows.SetFiltered(true);
    }
    list_.mnuFilter.SetChecked(!criteria.empty());
    rows.First();
    list_.Caption = Caption(list_.Title(), outstanding, !criteria.empty());
}

void OutstandingView::SetOutstanding(bool on, const shell::FilterForm* filter) {
    list_.mnuOutstanding.SetChecked(on);
    Apply(filter);
}

} // namespace corvane::timebilling
