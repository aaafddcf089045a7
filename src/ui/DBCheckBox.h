#pragma once

#include "ui/CheckBox.h"
#include "ui/FieldDataLink.h"

namespace corvane::ui {

// A check box on a boolean field; a null field shows unchecked. A toggle writes the field at once.
class DBCheckBox : public CheckBox {
public:
    DBCheckBox(Form& form, std::string name, std::string caption, store::DataSet& dataSet,
               std::string fieldName);

    void Toggle() override;
    FieldDataLink& DataLink() { return link_; }

    const char* TypeName() const override { return "DBCheckBox"; }

private:
    void DataChanged();
    FieldDataLink link_;
};

} // namespace corvane::ui
