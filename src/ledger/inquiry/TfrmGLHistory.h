#pragma once

#include "shell/patterns/ListForm.h"
#include "store/Table.h"
#include "ui/MenuItem.h"
#include "ui/ToolBar.h"

#include <optional>
#include <string>

namespace corvane::ledger {

class TfrmGLHistoryFilter;
class TfrmJV;

// Every posted voucher line, newest first, or one account's lines when an account is named. From
// a line one opens its voucher, the document behind it, or a new voucher copied from it.
class TfrmGLHistory : public shell::ListForm {
public:
    TfrmGLHistory(ui::Application& app, store::Database& db);
    ~TfrmGLHistory() override;

    static constexpr const char* kAllIndex = "PeriodDateJVDESC";
    static constexpr const char* kAccountIndex = "GLAccntIDPeriodDateJVDESC";

    store::Table& tblGLHist = MainTable;
    // The accounts and subaccounts behind the labels and the type test.
    store::Table tblGLAccnt, tblGLAcSub1, tblGLAcSub2, tblGLAcSub3;
    ui::MenuItem mnuRecordsSep{mnuRecords, "mnuRecordsSep", "-"};
    ui::MenuItem mnuJV{mnuRecords, "mnuJV", "&JV"};
    ui::MenuItem mnuSource{mnuRecords, "mnuSource", "&Source"};
    ui::MenuItem mnuCopyJV{mnuRecords, "mnuCopyJV", "&Copy JV"};
    ui::ToolButton tbnJV{tlbList, "tbnJV", mnuJV};
    ui::ToolButton tbnSource{tlbList, "tbnSource", mnuSource};
    ui::ToolButton tbnCopyJV{tlbList, "tbnCopyJV", mnuCopyJV};

    // Puts the filter in force: the expression on the table, the account order when an account
    // is named, and the account type (0 for all) tested row by row.
    void ApplyFilter(const std::string& expression, bool byAccount, int accountType);
    // The lines of one account, of one year or of all years, shown as a filter in force.
    void ShowAccount(std::int64_t accountId, std::optional<int> year);
    TfrmGLHistoryFilter& FilterDialog();

    void OpenVoucher();
    void OpenSource();
    void CopyVoucher();

protected:
    shell::EntryForm& Entry() override;
    shell::FilterForm* Filter() override;
    void Print() override;
    // The rows the grid shows, its columns as they stand.
    void Export() override;

private:
    void AddCalculatedFields();
    void CalculateRow(store::DataSet& ds);
    bool TypeMatches(store::DataSet& ds);
    TfrmJV& VoucherForm();
    // The voucher of the current line, or the message that it is gone.
    std::int64_t CurrentVoucherId();

    TfrmGLHistoryFilter* filter_ = nullptr;
    int accountType_ = 0;
};

} // namespace corvane::ledger
