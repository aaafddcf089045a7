#pragma once

#include "reports/engine/TQRPrintable.h"

namespace corvane::store {
class Field;
}

namespace corvane::reports {

// A field of a dataset's current row. With a mask the value goes through the money, number or
// date pattern; without one the field shows as it does on screen (its display format, its
// OnGetText).
class TQRDBText : public TQRPrintable {
public:
    TQRDBText() = default;
    TQRDBText(store::DataSet* dataSet, std::string fieldName)
        : DataSet(dataSet), DataField(std::move(fieldName)) {}

    store::DataSet* DataSet = nullptr; // the band's dataset when null
    std::string DataField;
    std::string Mask;

    void Bind(BindContext& context) override;
    void Print(const PrintContext&, std::vector<DrawOp>& ops) override;

private:
    store::Field* field_ = nullptr;
};

} // namespace corvane::reports
