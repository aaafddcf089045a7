#include "banking/import/TfrmImport.h"

#include "core/Exception.h"
#include "core/Text.h"
#include "ui/Application.h"
#include "ui/Layout.h"
#include "ui/WaitCursor.h"

#include <filesystem>

namespace corvane::banking {

namespace {

std::string JoinValues(const std::vector<std::string>& values) {
    std::string line;
    for (const std::string& value : values)
        line += (line.empty() ? "" : " | ") + value;
    return line;
}

} // namespace

TfrmImport::TfrmImport(ui::Application& app, store::Database& db, std::vector<ImportChoice> choices)
    : Form(app, "frmImport"), db_(db), choices_(std::move(choices)) {
    using namespace ui;
    Caption = "Import";
    for (const ImportChoice& choice : choices_)
        cboTable.Items.push_back(choice.Caption);
    cboTable.SetItemIndex(0);
    memPreview.ReadOnly = true;
    btnImport.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{
        FormRow{"Table:", cboTable},
        FormRow{"File name:", Row{editFileName, btnBrowse}},
        lblColumns,
        memPreview,
        lblRows,
        chkSkipRefused,
        ButtonRow{btnImport, btnCancel},
    });
    btnBrowse.OnClick = [this] {
        if (auto file = App().Desktop().PickFile("Import " + Chosen().Caption, editFileName.Text(),
                                                 "CSV files (*.csv);;All files (*)")) {
            editFileName.SetText(*file);
            ShowPreview();
        }
    };
    editFileName.OnExit = [this] { ShowPreview(); };
    btnImport.OnClick = [this] { Import(); };
}

TfrmImport::~TfrmImport() = default;

const ImportChoice& TfrmImport::Chosen() const {
    const int at = cboTable.ItemIndex();
    return choices_.at(at < 0 ? 0 : static_cast<std::size_t>(at));
}

void TfrmImport::OnTable(const std::string& caption) {
    for (std::size_t i = 0; i < choices_.size(); ++i)
        if (choices_[i].Caption == caption) cboTable.SetItemIndex(static_cast<int>(i));
    cboTable.Enabled = false;
    Caption = "Import " + caption;
}

void TfrmImport::ShowPreview() {
    memPreview.SetText({});
    lblRows.Caption.clear();
    const std::string name(TrimBlanks(editFileName.Text()));
    std::error_code error;
    if (name.empty() || !std::filesystem::is_regular_file(name, error)) return;
    ImportFile file;
    try {
        file = ReadImportFile(name);
    } catch (const Exception& e) {
        lblRows.Caption = e.what();
        return;
    }
    std::string text = JoinValues(file.Header);
    for (std::size_t r = 0; r < file.Rows.size() && r < PreviewRows; ++r)
        text += "\n" + JoinValues(file.Rows[r]);
    memPreview.SetText(text);
    lblRows.Caption = std::to_string(file.Rows.size()) +
                      (file.Rows.size() == 1 ? " row" : " rows") + " to import";
}

void TfrmImport::Import() {
    const std::string name(TrimBlanks(editFileName.Text()));
    auto refuse = [this](const std::string& message) {
        if (editFileName.CanFocus()) editFileName.SetFocus();
        throw Exception(message);
    };
    if (name.empty()) refuse("Enter the name of the file to import.");
    std::error_code error;
    if (!std::filesystem::is_regular_file(name, error))
        refuse("The file '" + name + "' does not exist.");
    const ImportFile file = ReadImportFile(name);
    const ImportTarget target = Chosen().Target(db_);
    ImportOutcome outcome;
    {
        ui::WaitCursor wait(App());
        outcome = ImportRows(db_, target, file, chkSkipRefused.Checked());
    }
    std::string report;
    for (const ImportRefusal& refused : outcome.Refused)
        report += "\nRow " + std::to_string(refused.Row) + ": " + refused.Message;
    if (!outcome.Committed) {
        App().MessageDlg("Nothing has been imported." + report, ui::MsgType::Error, {ui::mbOK});
        return;
    }
    std::string done = std::to_string(outcome.Imported) + " of " +
                       std::to_string(file.Rows.size()) + " rows imported.";
    if (!report.empty()) done += "\n\nRefused:" + report;
    App().MessageDlg(done, ui::MsgType::Information, {ui::mbOK});
    SetModalResult(ui::mrOK);
}

} // namespace corvane::banking
