#pragma once

#include "ui/Memo.h"

namespace corvane::ui {

// A memo on a field of a cursor.
class DBMemo : public Memo {
public:
    DBMemo(Form& form, std::string name, store::DataSet& dataSet, std::string fieldName)
        : Memo(form, std::move(name)) {
        Bind(dataSet, std::move(fieldName));
    }
    const char* TypeName() const override { return "DBMemo"; }
};

} // namespace corvane::ui
