#pragma once

#include "ui/Button.h"
#include "ui/Edit.h"
#include "ui/Form.h"

#include <string>
#include <vector>

namespace corvane::shell {

class ListForm;

// Asks for a key value in one of several edits and positions the list on it, in the order of the
// index of the field that was filled in. When nothing matches the list stays where it was.
class FindForm : public ui::Form {
public:
    FindForm(ui::Application& app, std::string name, ListForm& list);

    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

protected:
    // An edit for a key value of fieldName, looked up on the index indexName ("" primary).
    void AddKeyEdit(ui::Edit& edit, std::string fieldName, std::string indexName);

private:
    struct KeyEdit {
        ui::Edit* Edit;
        std::string FieldName;
        std::string IndexName;
    };
    void FindRow();

    ListForm& list_;
    std::vector<KeyEdit> edits_;
};

} // namespace corvane::shell
