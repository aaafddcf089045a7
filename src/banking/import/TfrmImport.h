#pragma once

#include "banking/domain/RowImport.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/Memo.h"

#include <functional>
#include <string>
#include <vector>

namespace corvane::banking {

// A table the import can fill, as the user picks it, and how its module saves a row.
struct ImportChoice {
    std::string Caption; // "Customers"
    std::function<ImportTarget(store::Database&)> Target;
};

// Imports a data file into one table: the file is picked, its first rows are shown under the
// fields its first line names, and Import saves every row through the module's own save in one
// transaction. A refused row is reported with its number and the system's message; nothing is
// written then, unless refused rows are to be skipped.
class TfrmImport : public ui::Form {
public:
    TfrmImport(ui::Application& app, store::Database& db, std::vector<ImportChoice> choices);
    ~TfrmImport() override;

    ui::ComboBox cboTable{*this, "cboTable"};
    ui::Edit editFileName{*this, "editFileName"};
    ui::Button btnBrowse{*this, "btnBrowse", "&Browse..."};
    ui::Label lblColumns{*this, "lblColumns",
                         "The first line names the fields of the table, one per column, separated "
                         "by commas."};
    // The first line and the first rows of the file, as they will be read.
    ui::Memo memPreview{*this, "memPreview"};
    ui::Label lblRows{*this, "lblRows"};
    ui::CheckBox chkSkipRefused{*this, "chkSkipRefused", "&Skip refused rows"};
    ui::Button btnImport{*this, "btnImport", "&Import"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

    // Opened from a list: the table is that list's and cannot be changed.
    void OnTable(const std::string& caption);
    // Reads the file named and shows its first rows; a file that cannot be read shows nothing.
    void ShowPreview();
    void Import();

    // The rows the preview shows at most.
    static constexpr std::size_t PreviewRows = 10;

private:
    const ImportChoice& Chosen() const;

    store::Database& db_;
    std::vector<ImportChoice> choices_;
};

} // namespace corvane::banking
