#include "receivables/invoices/forms/TfrmARInvoicesFind.h"

#include "core/Exception.h"
#include "core/Text.h"
#include "receivables/invoices/forms/TfrmARInvoices.h"
#include "store/Query.h"
#include "ui/Layout.h"

#include <algorithm>
#include <cctype>
#include <set>

namespace corvane::receivables {

namespace {

std::string Lower(std::string_view text) {
    std::string lower(text);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return lower;
}

// The invoices with at least one line whose notes hold the piece (already in lower case).
std::set<std::int64_t> InvoicesWithNotes(store::Database& db, const std::string& piece) {
    std::set<std::int64_t> ids;
    store::Query q(db, "SELECT ARInvoiceID, Notes FROM ARInvDet WHERE Notes IS NOT NULL");
    q.Open();
    for (q.First(); !q.Eof(); q.Next())
        if (Lower(q.FieldByName("Notes").AsString()).find(piece) != std::string::npos)
            ids.insert(q.FieldByName("ARInvoiceID").AsInteger());
    return ids;
}

} // namespace

TfrmARInvoicesFind::TfrmARInvoicesFind(ui::Application& app, TfrmARInvoices& list)
    : Form(app, "frmARInvoicesFind"), list_(list) {
    using namespace ui;
    Caption = "Find AR Invoice";
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{
        FormRow{"Invoice no.:", editInvoiceNo},
        FormRow{"Description:", editDescription},
        FormRow{"Notes:", editNotes},
        ButtonRow{btnOK, btnCancel},
    });
    btnOK.OnClick = [this] { FindInvoice(); };
}

void TfrmARInvoicesFind::FindInvoice() {
    const std::string number(TrimBlanks(editInvoiceNo.Text()));
    const std::string description = editDescription.Text();
    const std::string notes = editNotes.Text();
    if (!number.empty()) {
        if (!list_.tblARInv.Locate("InvoiceNo", {store::Value(number)}))
            throw Exception("Invoice '" + number + "' not found");
        last_.reset();
    } else if (!description.empty()) {
        const bool again =
            last_ && last_->Where == Piece::Description && last_->Text == description;
        if (!FindPiece(Piece::Description, description))
            throw Exception((again ? "No more invoices with '" : "No invoices with '") +
                            description + "' in description found");
    } else if (!notes.empty()) {
        const bool again = last_ && last_->Where == Piece::Notes && last_->Text == notes;
        if (!FindPiece(Piece::Notes, notes))
            throw Exception((again ? "No more invoices with '" : "No invoices with '") + notes +
                            "' in notes found");
    } else {
        return;
    }
    SetModalResult(ui::mrOK);
}

bool TfrmARInvoicesFind::FindPiece(Piece piece, const std::string& text) {
    store::Table& rows = list_.tblARInv;
    if (rows.IsEmpty()) return false;
    const std::string lower = Lower(text);
    std::set<std::int64_t> withNotes;
    if (piece == Piece::Notes) withNotes = InvoicesWithNotes(list_.Db(), lower);
    const store::Value start = rows.FieldByName("ARInvoiceID").AsValue();
    // Standing on what this same search found last, the search goes on after it.
    const bool onLastFind =
        last_ && last_->Where == piece && last_->Text == text && last_->ARInvoiceID == start.Int();
    rows.DisableControls();
    if (onLastFind) rows.Next();
    bool found = false;
    for (; !rows.Eof(); rows.Next()) {
        const std::int64_t id = rows.FieldByName("ARInvoiceID").AsInteger();
        found = piece == Piece::Notes
                    ? withNotes.count(id) > 0
                    : Lower(rows.FieldByName("Description").AsString()).find(lower) !=
                          std::string::npos;
        if (found) {
            last_ = LastFind{piece, text, id};
            break;
        }
    }
    if (!found) rows.Locate("ARInvoiceID", {start});
    rows.EnableControls();
    return found;
}

} // namespace corvane::receivables
