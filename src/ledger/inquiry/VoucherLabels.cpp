#include "ledger/inquiry/VoucherLabels.h"

#include "ledger/domain/VoucherTexts.h"
#include "store/DataSet.h"

namespace corvane::ledger {

void AddVoucherLabelFields(store::DataSet& vouchers) {
    vouchers.AddCalculatedField("Periodppyyyy", store::FieldType::String, 7);
    vouchers.AddCalculatedField("SourceType", store::FieldType::String, 6);
    vouchers.OnCalcFields = SetVoucherLabels;
}

void SetVoucherLabels(store::DataSet& row) {
    row.FieldByName("Periodppyyyy")
        .SetAsString(PeriodText(static_cast<int>(row.FieldByName("GLPeriod").AsInteger()),
                                static_cast<int>(row.FieldByName("GLYear").AsInteger())));
    row.FieldByName("SourceType")
        .SetAsString(VoucherSourceLabel(row.FieldByName("Source").AsString(),
                                        row.FieldByName("TransType").AsString()));
}

} // namespace corvane::ledger
