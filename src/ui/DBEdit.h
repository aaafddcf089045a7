#pragma once

#include "ui/Edit.h"

namespace corvane::ui {

// A one-line text box on a field of a cursor.
class DBEdit : public Edit {
public:
    DBEdit(Form& form, std::string name, store::DataSet& dataSet, std::string fieldName)
        : Edit(form, std::move(name)) {
        Bind(dataSet, std::move(fieldName));
    }
    const char* TypeName() const override { return "DBEdit"; }
};

} // namespace corvane::ui
