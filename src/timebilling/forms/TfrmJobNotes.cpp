#include "timebilling/forms/TfrmJobNotes.h"

#include "ui/Application.h"
#include "ui/Layout.h"

namespace corvane::timebilling {

TfrmJobNotes::TfrmJobNotes(ui::Application& app, store::DataSet& job)
    : Form(app, "frmJobNotes"), memNotes(*this, "memNotes", job, "Notes") {
    using namespace ui;
    Caption = "Job Notes";
    ClientWidth = 560;
    ClientHeight = 400;
    SetLayout(Column{
        memNotes,
        Row{editFind, btnFindNext, Stretch{}},
        ButtonRow{btnOK, btnCancel},
    });
    btnCancel.Cancel = true;
    // Made for one showing: it reads the job form's table, which goes with that form.
    OnClose = [](ui::CloseAction& action) { action = ui::CloseAction::Free; };
    btnFindNext.OnClick = [this] { FindNext(); };
    OnShow = [this] {
        opening_ = memNotes.Text();
        if (memNotes.CanFocus()) memNotes.SetFocus();
        if (FindAtShow) StartFind();
        FindAtShow = false;
    };
    btnOK.OnClick = [this] {
        memNotes.CommitEdit();
        SetModalResult(mrOK);
    };
    btnCancel.OnClick = [this] {
        if (memNotes.Text() != opening_) memNotes.SetText(opening_);
        memNotes.CommitEdit();
        SetModalResult(mrCancel);
    };
}

void TfrmJobNotes::StartFind() {
    if (editFind.CanFocus()) editFind.SetFocus();
    editFind.SelectAll();
}

void TfrmJobNotes::FindNext() {
    const std::string wanted = editFind.Text();
    if (wanted.empty()) return StartFind();
    // Into the notes first: entering a box sets its selection, which would undo the find's.
    if (memNotes.CanFocus()) memNotes.SetFocus();
    if (!memNotes.FindText(wanted))
        App().MessageDlg("'" + wanted + "' not found", ui::MsgType::Information, {ui::mbOK});
}

} // namespace corvane::timebilling
