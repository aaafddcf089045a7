#pragma once

#include "ledger/domain/VoucherTotals.h"
#include "shell/patterns/EntryForm.h"
#include "store/Table.h"
#include "ui/Button.h"
#include "ui/DBCheckBox.h"
#include "ui/DBEdit.h"
#include "ui/DateEdit.h"
#include "ui/FieldDataLink.h"
#include "ui/Grid.h"
#include "ui/Label.h"
#include "ui/Menu.h"
#include "ui/MenuItem.h"
#include "ui/StatusBar.h"

#include <functional>
#include <optional>
#include <string>

namespace corvane::ledger {

// One journal voucher: its header and a grid of lines typed in place (account, signed amount,
// subaccounts), with
// running debit and credit totals below. The lines are kept in a scratch table of the form's own
// until the voucher saves, and then go to the company with the header in one transaction: a
// refused save writes nothing, and Cancel forgets every change of lines. A posted voucher is
// shown but refuses every change.
class TfrmJV : public shell::EntryForm {
public:
    TfrmJV(ui::Application& app, store::Database& db);
    ~TfrmJV() override;

    store::Table& tblJV = EntryTable;
    store::Table tblJVDet;
    store::Table tblGLAccnt;
    store::Table tblSub1, tblSub2, tblSub3;
    store::Table tblVendor, tblCustomer;

    ui::Label lblPosted{*this, "lblPosted", "POSTED"};
    ui::Button btnUnpost{*this, "btnUnpost", "&Unpost"};
    ui::DBEdit editJVNumber{*this, "editJVNumber", EntryTable, "JVNumber"};
    ui::DBEdit editDescription{*this, "editDescription", EntryTable, "TransDescription"};
    ui::DateEdit editTransDate{*this, "editTransDate"};
    ui::DBEdit editPeriod{*this, "editPeriod", EntryTable, "GLPeriod"};
    ui::DBEdit editYear{*this, "editYear", EntryTable, "GLYear"};
    ui::DBCheckBox chkAutoReverse{*this, "chkAutoReverse", "Auto-Reverse", EntryTable,
                                  "AutoReverse"};

    ui::PopupMenu popLines{*this, "popLines"};
    ui::MenuItem popNewLine{popLines, "popNewLine", "&New", "Ctrl+Ins"};
    ui::MenuItem popDeleteLine{popLines, "popDeleteLine", "&Delete", "Ctrl+Del"};
    ui::MenuItem popImport{popLines, "popImport", "Import JV Data"};
    // The lines, typed cell by cell: account number, amount (credits negative), subaccounts.
    ui::Grid grdLines{*this, "grdLines", tblJVDet};
    ui::Button btnGLAccounts{*this, "btnGLAccounts", "GL Accounts"};
    ui::StatusBar stbTotals{*this, "stbTotals"};
    ui::Button btnOKNew{*this, "btnOKNew", "OK && &New"};
    ui::Button btnHelp{*this, "btnHelp", "&Help"};

    // After an unpost: the list that opened the voucher moves to it and shows it unposted.
    std::function<void(TfrmJV&)> AfterUnpost;

    const VoucherTotals& Totals() const { return totals_; }
    // A new voucher with the lines, description, amount and auto-reverse of the saved voucher
    // sourceId and a number of its own; nothing is written until OK.
    void CopyFrom(int sourceId);
    // Keeps the open line, checks the voucher, then writes it and its lines as one unit; a
    // refusal writes nothing and leaves both as typed.
    void SaveVoucher();
    // Asks for a file of lines and adds them to the voucher (see ImportLines).
    void ImportJVData();
    // Adds the lines of the file to the voucher through the rules of typed lines. A number that
    // names nothing asks whether to go on without that row; No ends the import. A faulty file
    // adds nothing.
    void ImportLines(const std::string& fileName);
    // The scratch table holding the lines shown, in the "memory" database.
    const std::string& LinesTableName() const { return linesTable_; }

protected:
    std::string KeyViolationMessage() const override;

private:
    void SetUpLineFields();
    void NewVoucher();
    void StartFromSaved();
    void CheckBeforeSave();
    void CheckLine();
    void LineSaved();
    void LineDeleted();
    void StoreAmount();
    void ShowTotals();
    void ShowCaption();
    void ShowPostedState();
    void RefusePosted() const;
    void Focus(ui::Control& control);
    bool Posted();
    void DropNewLines();
    void CreateLinesTable();
    void ClearLines();
    void LoadSavedLines();
    // The close question's work: the voucher and its lines.
    bool HasUnsavedWork() override;
    void DropUntouchedWork() override;
    void SaveWork() override { SaveVoucher(); }
    void DropWork() override;
    void DeleteLine();
    void NewLine();
    void Unpost();
    void ShowHelp();
    std::string DescriptionShown(const store::Field& field);

    VoucherTotals totals_;
    int nextSeq_ = 1;
    Money lineBefore_;
    Money deletedAmount_;
    bool copying_ = false;
    bool closing_ = false;
    std::string linesTable_;
    // The number edit, reachable from the const hook that words a duplicate key.
    ui::DBEdit* const numberEdit_ = &editJVNumber;
    ui::FieldDataLink captionNumberLink_{EntryTable, "JVNumber", [this] { ShowCaption(); }};
    ui::FieldDataLink captionTextLink_{EntryTable, "TransDescription", [this] { ShowCaption(); }};
    ui::FieldDataLink postedLink_{EntryTable, "Posted", [this] { ShowPostedState(); }};
};

} // namespace corvane::ledger
