#include "receivables/invoices/forms/TfrmARInvoiceNotes.h"

#include "ui/Layout.h"

namespace corvane::receivables {

TfrmARInvoiceNotes::TfrmARInvoiceNotes(ui::Application& app) : Form(app, "frmARInvoiceNotes") {
    using namespace ui;
    Caption = "Notes";
    // Enter breaks a line of the notes; Ctrl+Enter is the way out that keeps them.
    KeyPreview = true;
    OnKeyDown = [this](Key& key, Modifiers mods) {
        SwallowAlt(key);
        if (key == Key::Enter && mods.Ctrl) {
            key = Key::None;
            memoNotes.CommitEdit();
            SetModalResult(mrOK);
        }
    };
    btnOK.ModalResult = mrOK;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{memoNotes, ButtonRow{btnOK, btnCancel}});
    ClientWidth = 420;
    ClientHeight = 220;
}

std::optional<std::string> TfrmARInvoiceNotes::Edit(const std::string& notes) {
    memoNotes.SetText(notes);
    memoNotes.SetSelStart(static_cast<int>(notes.size()));
    memoNotes.SetFocus();
    if (ShowModal() != ui::mrOK) return std::nullopt;
    return memoNotes.Text();
}

} // namespace corvane::receivables
