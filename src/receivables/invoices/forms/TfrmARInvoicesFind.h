#pragma once

#include "ui/Button.h"
#include "ui/Edit.h"
#include "ui/Form.h"

#include <cstdint>
#include <optional>
#include <string>

namespace corvane::receivables {

class TfrmARInvoices;

// Finds an invoice of the list by its number, or by a piece of its description or of the notes
// of any of its lines. A piece is looked for from the invoice the list stands on onwards; asked
// again after a find, the search goes on after the invoice found. When nothing matches the list
// stays where it was and the dialog says so.
class TfrmARInvoicesFind : public ui::Form {
public:
    TfrmARInvoicesFind(ui::Application& app, TfrmARInvoices& list);

    ui::Edit editInvoiceNo{*this, "editInvoiceNo"};
    ui::Edit editDescription{*this, "editDescription"};
    ui::Edit editNotes{*this, "editNotes"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

    void FindInvoice();

private:
    enum class Piece { Description, Notes };
    // Walks the list from where it stands (after it, when it stands on the last find of the
    // same text) to the first invoice holding text; false when there is none.
    bool FindPiece(Piece piece, const std::string& text);

    TfrmARInvoices& list_;
    // The last piece found, so that asking again goes on past it.
    struct LastFind {
        Piece Where;
        std::string Text;
        std::int64_t ARInvoiceID;
    };
    std::optional<LastFind> last_;
};

} // namespace corvane::receivables
