#pragma once

#include "shell/patterns/SearchForm.h"

namespace corvane::inventory {

// Finds an item by typing its number or description, optionally among one type or subtype.
class TfrmItemSearch : public shell::SearchForm {
public:
    TfrmItemSearch(ui::Application& app, store::Database& db);

    ui::Edit editFindItemNo{*this, "editFindItemNo"};
    ui::Edit editFindItemDescription{*this, "editFindItemDescription"};
    ui::DBLookupComboBox& cboItemType;
};

} // namespace corvane::inventory
