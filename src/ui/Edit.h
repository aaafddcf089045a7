#pragma once

#include "ui/CustomEdit.h"

namespace corvane::ui {

// A one-line text box.
class Edit : public CustomEdit {
public:
    Edit(Form& form, std::string name) : CustomEdit(form, std::move(name)) {}
    const char* TypeName() const override { return "Edit"; }
};

} // namespace corvane::ui
