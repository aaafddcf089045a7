#include "ledger/vouchers/TfrmImportJVData.h"

#include "core/Exception.h"
#include "core/Text.h"
#include "ui/Application.h"
#include "ui/Layout.h"

#include <filesystem>

namespace corvane::ledger {

TfrmImportJVData::TfrmImportJVData(ui::Application& app) : Form(app, "frmImportJVData") {
    using namespace ui;
    Caption = "Import JV Data";
    lblFileName.FocusControl = &editFileName;
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    SetLayout(Column{
        FormRow{lblFileName, Row{editFileName, btnBrowse}},
        lblColumns,
        ButtonRow{btnOK, btnCancel},
    });
    btnOK.OnClick = [this] { Confirm(); };
    btnBrowse.OnClick = [this] {
        if (auto file = App().Desktop().PickFile("Import JV Data", editFileName.Text(),
                                                 "CSV files (*.csv);;All files (*)"))
            editFileName.SetText(*file);
    };
}

std::string TfrmImportJVData::FileName() const {
    return std::string(TrimBlanks(editFileName.Text()));
}

void TfrmImportJVData::Confirm() {
    std::string name = FileName();
    auto refuse = [this](const std::string& message) {
        if (editFileName.CanFocus()) editFileName.SetFocus();
        throw Exception(message);
    };
    if (name.empty()) refuse("Enter the name of the file to import.");
    std::error_code error;
    if (!std::filesystem::is_regular_file(name, error))
        refuse("The file '" + name + "' does not exist.");
    SetModalResult(ui::mrOK);
}

} // namespace corvane::ledger
