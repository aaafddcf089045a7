#pragma once

#include "ui/FieldDataLink.h"
#include "ui/RadioGroup.h"

namespace corvane::ui {

// A radio group on a field: each item stands for a value of the field (Values, as the field's
// text; when empty, the items' captions). A choice writes the field at once; a field whose value
// is none of them shows no choice.
class DBRadioGroup : public RadioGroup {
public:
    DBRadioGroup(Form& form, std::string name, std::string caption, std::vector<std::string> items,
                 store::DataSet& dataSet, std::string fieldName,
                 std::vector<std::string> values = {});

    std::vector<std::string> Values;
    FieldDataLink& DataLink() { return link_; }

    const char* TypeName() const override { return "DBRadioGroup"; }

protected:
    void UserChoose(int index) override;

private:
    std::string ValueOf(std::size_t index) const;
    void DataChanged();
    FieldDataLink link_;
};

} // namespace corvane::ui
