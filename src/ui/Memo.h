#pragma once

#include "ui/CustomEdit.h"

namespace corvane::ui {

// Text of several lines, separated by "\n". Enter breaks the line instead of leaving the control.
class Memo : public CustomEdit {
public:
    Memo(Form& form, std::string name) : CustomEdit(form, std::move(name)) {}
    const char* TypeName() const override { return "Memo"; }

protected:
    bool Multiline() const override { return true; }
};

} // namespace corvane::ui
