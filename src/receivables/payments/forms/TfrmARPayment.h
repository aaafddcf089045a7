#pragma once

#include "receivables/domain/LinesSnapshot.h"
#include "receivables/payments/domain/PaymentDocument.h"
#include "shell/patterns/EntryForm.h"
#include "store/Table.h"
#include "ui/Button.h"
#include "ui/ComboBox.h"
#include "ui/DBEdit.h"
#include "ui/DBLookupComboBox.h"
#include "ui/DateEdit.h"
#include "ui/FieldDataLink.h"
#include "ui/Grid.h"
#include "ui/Label.h"
#include "ui/Menu.h"
#include "ui/MenuItem.h"

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

namespace corvane::receivables {

// One customer payment: who paid, into which bank, when and how, and a grid of the invoices it
// settles, typed in place. Lines are written to the company as they are saved; the form keeps
// them as they were from the first change and puts them back on Cancel. Invoices, balances and
// the ledger are untouched until posting. The checks of a line and of the payment are the
// payment document's; the form turns them into messages, focus and questions.
class TfrmARPayment : public shell::EntryForm {
public:
    TfrmARPayment(ui::Application& app, store::Database& db);
    ~TfrmARPayment() override;

    store::Table& tblARPmt = EntryTable;
    store::Table tblARInvPmt;
    store::Table tblCustomer, tblBank, tblARInv;

    ui::Label lblPosted{*this, "lblPosted", "POSTED"};
    ui::Label lblReconciled{*this, "lblReconciled", "Reconciled"};
    ui::DBEdit editCustomerNo{*this, "editCustomerNo", EntryTable, "CustomerID"};
    ui::Button btnCustomer{*this, "btnCustomer", "..."};
    ui::Label lblCustomerName{*this, "lblCustomerName"};
    ui::Label lblAddress{*this, "lblAddress"};
    ui::DBEdit editChequeNo{*this, "editChequeNo", EntryTable, "ChequeNo"};
    ui::DBLookupComboBox cboBank{*this,   "cboBank", EntryTable, "BankID",
                                 tblBank, "BankID",  "BankName"};
    ui::DateEdit editPaymentDate{*this, "editPaymentDate"};
    ui::DBEdit editPeriod{*this, "editPeriod", EntryTable, "GLPeriod"};
    ui::DBEdit editYear{*this, "editYear", EntryTable, "GLYear"};
    ui::ComboBox cboPaidBy{*this, "cboPaidBy"};
    ui::DBEdit editAmount{*this, "editAmount", EntryTable, "ChequeAmount"};
    ui::Grid grdLines{*this, "grdLines", tblARInvPmt};
    ui::Label lblTotal{*this, "lblTotal"};
    ui::Button btnAutoCreate{*this, "btnAutoCreate", "&AutoCreate"};
    ui::Button btnOKNew{*this, "btnOKNew", "OK && &New"};

    ui::PopupMenu popLines{*this, "popLines"};
    ui::MenuItem popOutstanding{popLines, "popOutstanding", "&Outstanding"};
    ui::MenuItem popNewLine{popLines, "popNewLine", "&New", "Ctrl+Ins"};
    ui::MenuItem popDeleteLine{popLines, "popDeleteLine", "&Delete", "Ctrl+Del"};
    ui::MenuItem popAutoCreate{popLines, "popAutoCreate", "&AutoCreate"};
    ui::MenuItem popPayNoDiscount{popLines, "popPayNoDiscount", "Pay + no discount"};
    ui::MenuItem popPayTakeDiscount{popLines, "popPayTakeDiscount", "Pay + take discount"};
    ui::MenuItem popPayIfEligible{popLines, "popPayIfEligible", "Pay + discount if eligible"};
    ui::MenuItem popWriteOff{popLines, "popWriteOff", "Write-off"};

    // The invoice chooser, seeded with the key typed; nothing when the user cancelled. The
    // program's registration sets it.
    std::function<std::optional<std::int64_t>(char firstChar, const std::string& filter)>
        ChooseInvoice;
    // The customer search; nothing when the user cancelled.
    std::function<std::optional<std::int64_t>()> ChooseCustomer;

    PaymentHeader Header();
    // Saves the open line and the payment; a refusal leaves both as typed.
    void SavePayment();
    // Replaces the lines by the customer's open invoices, with the questions of the command.
    void AutoCreate();
    // Puts the invoice on the current line, as choosing it in the chooser does, paid as "Pay +
    // discount if eligible"; moveToPayment puts the user in the payment's cell.
    void SetLineInvoice(std::int64_t arInvoiceId, bool moveToPayment);
    // The filter the invoice chooser opens with, for the current line.
    std::string InvoiceFilter();
    Money LinesTotal() const { return total_; }
    std::int64_t LineCount() const { return static_cast<std::int64_t>(invoices_.size()); }

protected:
    std::string KeyViolationMessage() const override;

private:
    void SetUpLines();
    void NewPayment();
    void CustomerTyped(store::Field& f, std::string_view typed);
    void CustomerChanged();
    void CheckBeforeSave();
    void CheckLine(store::DataSet& lines);
    void BeforeLineChange(store::DataSet& lines);
    void LineSaved();
    void LineDeleted();
    void ReadLines();
    void ApplyToLine(const std::function<void(AllocationLine&, const InvoiceDue&)>& command);
    AllocationLine CurrentLine();
    void PutLine(const AllocationLine& line);
    std::optional<InvoiceDue> LineInvoice();
    void GridKeyPress(char& ch);
    // The account (level 0) or subaccount search of a write-off cell, started with the key typed.
    void PickAccount(int level, char firstChar);
    void AccountColumn(const std::string& field, int level);
    void ShowCaption();
    void ShowHeaderTexts();
    void ShowTotal();
    void FocusField(std::string_view field);
    void FocusColumn(int column);
    bool Posted();
    void DropLines();
    bool HasUnsavedWork() override;
    void SaveWork() override { SavePayment(); }

    bool checkWording_ = false;
    LinesSnapshot snapshot_;
    Money total_;
    Money oldAmount_;
    std::optional<std::int64_t> oldInvoice_;
    std::map<std::int64_t, std::int64_t> invoices_; // ARInvoiceID -> Seq of each line
    std::int64_t nextSeq_ = 1;
    bool restoring_ = false;
    bool closing_ = false;
    bool settingInvoice_ = false;
    ui::FieldDataLink captionLink_{EntryTable, "ChequeNo", [this] { ShowCaption(); }};
    ui::FieldDataLink customerLink_{EntryTable, "CustomerID", [this] { ShowHeaderTexts(); }};
    ui::FieldDataLink paidByLink_{EntryTable, "PaidBy", [this] { ShowHeaderTexts(); }};
};

} // namespace corvane::receivables
