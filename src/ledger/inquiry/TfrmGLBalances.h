#pragma once

#include "ledger/inquiry/PeriodColumns.h"
#include "shell/patterns/ListForm.h"
#include "ui/MenuItem.h"
#include "ui/ToolBar.h"

#include <string>
#include <vector>

namespace corvane::ledger {

class TfrmGLBalancesFilter;

// The totals of the ledger: one row per account, subaccounts and year, with the twelve periods as
// balances or as movements. The rows come from a query that joins every account to its totals, so
// an account nothing was posted to still has its row. Nothing here is edited.
class TfrmGLBalances : public shell::ListForm {
public:
    // The budget form and the user's rights come through the program's form service.
    TfrmGLBalances(ui::Application& app, store::Database& db);
    ~TfrmGLBalances() override;

    store::Query& qryGLAccnt = MainQuery;
    ui::MenuItem mnuSortGLAccount{mnuSortBy, "mnuSortGLAccount", "Account &no."};
    ui::MenuItem mnuSortAccountName{mnuSortBy, "mnuSortAccountName", "&Name"};
    ui::MenuItem mnuData{mnuView, "mnuData", "&Data"};
    ui::MenuItem mnuDataAuto{mnuData, "mnuDataAuto", "&Auto (Balance or Net Change)"};
    ui::MenuItem mnuDataBalance{mnuData, "mnuDataBalance", "&Balance"};
    ui::MenuItem mnuDataNetChange{mnuData, "mnuDataNetChange", "&Net Change"};
    ui::MenuItem mnuRecordsSep{mnuRecords, "mnuRecordsSep", "-"};
    ui::MenuItem mnuHistory{mnuRecords, "mnuHistory", "&History"};
    ui::MenuItem mnuBudget{mnuRecords, "mnuBudget", "&Budget"};
    ui::ToolButton tbnHistory{tlbList, "tbnHistory", mnuHistory};
    ui::ToolButton tbnBudget{tlbList, "tbnBudget", mnuBudget};

    // The conditions of the filter, each in parentheses; none reads every row. The query is read
    // again with them.
    void SetConditions(const std::vector<std::string>& conditions);
    // "WHERE 1=1" when no condition is in force.
    const std::string& WhereLine() const { return where_; }
    // The list's statement under that WHERE line, by account number: what the totals report
    // reads when no list stands in front of it.
    static std::string Statement(const std::string& whereLine);
    TotalsData Data() const { return data_; }
    void SetData(TotalsData data);

    void ShowHistory();
    void ShowBudget();

protected:
    shell::EntryForm& Entry() override;
    shell::FilterForm* Filter() override;
    void Print() override;
    // The rows the grid shows, its columns as they stand.
    void Export() override;

private:
    void AddCalculatedFields();
    void CalculateRow(store::DataSet& ds);
    void SortBy(ui::MenuItem& item, std::string orderBy, const char* fieldName);
    void Requery();

    TfrmGLBalancesFilter* filter_ = nullptr;
    std::string where_;
    std::string orderBy_;
    TotalsData data_ = TotalsData::Auto;
};

} // namespace corvane::ledger
