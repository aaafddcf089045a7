#pragma once

#include "ui/Button.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Label.h"

#include <string>

namespace corvane::ledger {

// Asks which file of voucher lines to import: typed, or picked with Browse. OK closes only on a
// file that is there.
class TfrmImportJVData : public ui::Form {
public:
    explicit TfrmImportJVData(ui::Application& app);

    ui::Label lblFileName{*this, "lblFileName", "&File name:"};
    ui::Edit editFileName{*this, "editFileName"};
    ui::Button btnBrowse{*this, "btnBrowse", "&Browse..."};
    ui::Label lblColumns{*this, "lblColumns",
                         "One line per voucher line: account no., amount (credits negative), "
                         "subaccount 1, 2 and 3 no., separated by commas."};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

    // The name as confirmed by OK.
    std::string FileName() const;

private:
    void Confirm();
};

} // namespace corvane::ledger
