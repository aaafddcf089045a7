#include "reports/engine/TQRDBText.h"

#include "core/Exception.h"
#include "reports/engine/ValueText.h"
#include "store/DataSet.h"

namespace corvane::reports {

void TQRDBText::Bind(BindContext& context) {
    store::DataSet* source = DataSet ? DataSet : context.dataSet;
    field_ = source ? source->FindField(DataField) : nullptr;
    if (!field_)
        throw Exception("Report field '" + DataField + "' of " +
                        (Name.empty() ? "a data field" : Name) + " does not exist");
}

void TQRDBText::Print(const PrintContext&, std::vector<DrawOp>& ops) {
    // A field that makes its own text (a code shown as a word) is that text in a spreadsheet too.
    if (field_->IsNull() || field_->OnGetText) {
        AddText(ops, field_->DisplayText());
        return;
    }
    if (Mask.empty()) {
        AddValueText(ops, field_->DisplayText(), field_->AsValue(), field_->DisplayFormat);
        return;
    }
    AddValueText(ops, FormatReportValue(field_->AsValue(), Mask), field_->AsValue(), Mask);
}

} // namespace corvane::reports
