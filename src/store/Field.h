#pragma once

#include "store/FieldType.h"
#include "store/Value.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::store {

class DataSet;

enum class FieldKind { Data, Calculated, Lookup };

// One field of a cursor's current record, read and written by name. A null is distinct from
// 0 and "" for every type; the As... readers give 0, "" or false for a null, as callers expect.
class Field {
public:
    Field(DataSet& owner, int index, std::string name, FieldType type, int size, FieldKind kind);

    DataSet& Owner() const { return owner_; }
    int Index() const { return index_; }
    const std::string& FieldName() const { return name_; }
    FieldType DataType() const { return type_; }
    int Size() const { return size_; }
    FieldKind Kind() const { return kind_; }
    bool IsCalculated() const { return kind_ != FieldKind::Data; }

    std::string DisplayLabel; // the label in messages; the field name when empty
    std::string DisplayFormat;
    bool Required = false;
    bool ReadOnly = false;
    bool Visible = true;
    int DisplayWidth = 0;

    const std::string& Label() const { return DisplayLabel.empty() ? name_ : DisplayLabel; }

    bool IsNull() const;
    const Value& AsValue() const;
    std::string AsString() const;
    std::int64_t AsInteger() const;
    double AsFloat() const;
    Money AsMoney() const;
    Date AsDate() const;
    bool AsBoolean() const;

    // Writers: only in edit or insert state (calculated fields inside OnCalcFields). They check
    // the value against the field (size, range, conversion), run OnValidate (which may refuse by
    // raising: the old value stays), then OnChange.
    void SetValue(const Value& value);
    void SetAsString(std::string_view value);
    void SetAsInteger(std::int64_t value);
    void SetAsFloat(double value);
    void SetAsMoney(Money value);
    void SetAsDate(Date value);
    void SetAsBoolean(bool value);
    void Clear();

    // The text a control shows: OnGetText when set, else the value through DisplayFormat.
    std::string DisplayText() const;
    // The text an editor edits: OnGetText(displayText = false) when set, else the plain value.
    std::string Text() const;
    // What a control writes back: OnSetText when set, else the text converted to the type.
    void SetText(std::string_view text);

    std::function<void(Field&)> OnValidate;
    std::function<void(Field&)> OnChange;
    std::function<std::string(const Field&, bool displayText)> OnGetText;
    std::function<void(Field&, std::string_view text)> OnSetText;

    // Look-up fields: this dataset's KeyFields find the row of LookupDataSet whose
    // LookupKeyFields match; the field shows that row's LookupResultField.
    std::string KeyFields;
    DataSet* LookupDataSet = nullptr;
    std::string LookupKeyFields;
    std::string LookupResultField;

    // Converts a value to this field's stored kind, checking size and range. Throws EngineError.
    Value Coerce(const Value& value) const;

private:
    friend class DataSet;
    void SetIndex(int index) { index_ = index; }

    DataSet& owner_;
    int index_;
    std::string name_;
    FieldType type_;
    int size_;
    FieldKind kind_;
};

// Splits "A;B;C" into its names, trimmed.
std::vector<std::string> SplitFieldList(std::string_view list);

} // namespace corvane::store
