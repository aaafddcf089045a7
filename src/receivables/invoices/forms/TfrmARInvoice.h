#pragma once

#include "receivables/domain/LinesSnapshot.h"
#include "receivables/invoices/InvoiceDocument.h"
#include "shell/patterns/EntryForm.h"
#include "store/Table.h"
#include "ui/Button.h"
#include "ui/DBCheckBox.h"
#include "ui/DBEdit.h"
#include "ui/DBLookupComboBox.h"
#include "ui/DateEdit.h"
#include "ui/FieldDataLink.h"
#include "ui/Grid.h"
#include "ui/Label.h"

#include <functional>
#include <optional>
#include <vector>

namespace corvane::receivables {

// One sales invoice: its header, the customer's terms and ship-to, the tax line and a grid of
// lines typed in place. Lines are written to the company as they are saved, as entry always
// did; the form keeps a snapshot of them from the first change and puts it back on Cancel, so a
// cancelled edit leaves the lines as they were and a cancelled new invoice leaves none. The
// checks of a save are the invoice document's; the form turns them into messages, focus and
// questions.
class TfrmARInvoice : public shell::EntryForm {
public:
    TfrmARInvoice(ui::Application& app, store::Database& db);
    ~TfrmARInvoice() override;

    store::Table& tblARInv = EntryTable;
    store::Table tblARInvDet;
    store::Table tblCustomer, tblItem, tblWarehse;

    ui::Label lblPosted{*this, "lblPosted", "POSTED"};
    ui::DBEdit editInvoiceNo{*this, "editInvoiceNo", EntryTable, "InvoiceNo"};
    ui::DBEdit editCustomerNo{*this, "editCustomerNo", EntryTable, "CustomerID"};
    ui::Label lblCustomerName{*this, "lblCustomerName"};
    ui::Label lblShipTo{*this, "lblShipTo"};
    ui::Label lblTerms{*this, "lblTerms"};
    ui::DateEdit editInvoiceDate{*this, "editInvoiceDate"};
    ui::DBEdit editPeriod{*this, "editPeriod", EntryTable, "GLPeriod"};
    ui::DBEdit editYear{*this, "editYear", EntryTable, "GLYear"};
    ui::DBLookupComboBox cboWarehouse{*this,      "cboWarehouse", EntryTable,     "WarehouseID",
                                      tblWarehse, "WarehouseID",  "WarehouseName"};
    ui::DBEdit editDescription{*this, "editDescription", EntryTable, "Description"};
    ui::DBEdit editPurchaseOrderNo{*this, "editPurchaseOrderNo", EntryTable, "PurchaseOrderNo"};
    ui::DBCheckBox chkPrinted{*this, "chkPrinted", "Printed", EntryTable, "Printed"};
    ui::Grid grdLines{*this, "grdLines", tblARInvDet};
    ui::Label lblTax{*this, "lblTax"};
    ui::DBEdit editInvoiceAmount{*this, "editInvoiceAmount", EntryTable, "InvoiceAmount"};
    ui::DBEdit editPaidAmount{*this, "editPaidAmount", EntryTable, "PaidAmount"};
    ui::DBEdit editOwing{*this, "editOwing", EntryTable, "Owing"};
    ui::Button btnPayment{*this, "btnPayment", "POS &Payment..."};
    ui::Button btnOKNew{*this, "btnOKNew", "OK && &New"};
    ui::Button btnOKPrint{*this, "btnOKPrint", "OK && &Print"};

    // The point-of-sale payment pop-up; the program's registration sets it.
    std::function<void()> OpenPayment;
    // Prints the saved invoice for OK & Print; the list sets it.
    std::function<void(std::int64_t arInvoiceId)> PrintInvoice;

    // The header as the document's rules see it.
    InvoiceHeader Header();
    // Saves the open line and the invoice; a refusal leaves both as typed.
    void SaveInvoice();
    // A new invoice with the customer, warehouse, texts and lines of a saved one.
    void CopyFrom(std::int64_t sourceId);
    // Sets the point-of-sale payment, as the pop-up does on OK.
    void SetPayment(const PointOfSalePayment& payment);
    // The notes of the line in the notes pop-up, the key typed added to them; the line keeps
    // what the pop-up keeps and stays in edit, as after typing into a cell.
    void EditLineNotes(char typed);

protected:
    std::string KeyViolationMessage() const override;

private:
    void SetUpLines();
    void NewInvoice();
    void CustomerChanged();
    void ItemChanged(store::Field& item);
    void PriceChanged();
    void CheckBeforeSave();
    void BeforeLineChange(store::DataSet& lines);
    void LineSaved();
    void LineDeleted();
    void ApplyTaxes(const TaxedLine& before, const TaxedLine& after);
    void TakeSnapshot();
    void RestoreSnapshot();
    void ShowCaption();
    void ShowHeaderTexts();
    void ShowLines();
    void Focus(std::string_view field);
    bool Posted();
    void ReadOnlyMessage(ui::Control& control, const char* message);
    void DropLines();
    bool HasUnsavedWork() override;
    void SaveWork() override { SaveInvoice(); }

    DocumentTaxSet taxes_;
    TaxBuckets buckets_;
    TaxAmounts taxAmounts_;
    TaxedLine lineBefore_;
    LinesSnapshot snapshot_;
    std::int64_t nextSeq_ = 1;
    bool restoring_ = false;
    bool closing_ = false;
    bool copying_ = false;
    ui::FieldDataLink captionNoLink_{EntryTable, "InvoiceNo", [this] { ShowCaption(); }};
    ui::FieldDataLink customerLink_{EntryTable, "CustomerID", [this] { ShowHeaderTexts(); }};
};

} // namespace corvane::receivables
