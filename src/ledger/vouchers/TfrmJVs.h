#pragma once

#include "shell/patterns/ListForm.h"
#include "ui/MenuItem.h"
#include "ui/ToolBar.h"

namespace corvane::ledger {

class TfrmJV;

// Every voucher of every source, by period. Only manual (GL) vouchers may be deleted or copied;
// a posted one opens to be looked at and unposted, not edited.
class TfrmJVs : public shell::ListForm {
public:
    // Posting and history are other forms of the program, opened through its form service;
    // without them those commands are hidden.
    TfrmJVs(ui::Application& app, store::Database& db);

    store::Table& tblJV = MainTable;
    ui::MenuItem& mnuSortPeriod;
    ui::MenuItem& mnuSortPeriodDesc;
    ui::MenuItem& mnuSortJVNumber;
    ui::MenuItem& mnuSortPeriodDate;
    ui::MenuItem& mnuSortPeriodDateDesc;
    ui::MenuItem& mnuSortDescription;
    ui::MenuItem mnuCopy{mnuRecords, "mnuCopy", "&Copy"};
    ui::MenuItem mnuPost{mnuRecords, "mnuPost", "&Post..."};
    ui::MenuItem mnuHistory{mnuView, "mnuHistory", "&History..."};
    ui::MenuItem mnuPrintJV{mnuRecords, "mnuPrintJV", "Print &JV..."};
    ui::ToolButton tbnCopy{tlbList, "tbnCopy", mnuCopy};
    ui::ToolButton tbnPost{tlbList, "tbnPost", mnuPost};

    void EditVoucher();
    void CopyVoucher();
    void PostVouchers();
    void OpenHistory();
    // The current voucher with its lines, to the preview.
    void PrintVoucher();

protected:
    shell::EntryForm& Entry() override;
    shell::FilterForm* Filter() override;
    shell::FindForm* Find() override;
    void Print() override;

private:
    TfrmJV& VoucherForm();
    void AddListFields();
    void RemoveVoucher();
    void FollowVoucher(TfrmJV& form);
    void SortByTitle(ui::GridColumn& column);
};

} // namespace corvane::ledger
