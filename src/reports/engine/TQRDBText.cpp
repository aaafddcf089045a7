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
    if (Mask.empty() || field_->IsNull() || field_->OnGetText) {
        AddText(ops, field_->DisplayText());
        return;
    }
    AddText(ops, FormatReportValue(field_->AsValue(), Mask));
}

} // namespace corvane::reports
