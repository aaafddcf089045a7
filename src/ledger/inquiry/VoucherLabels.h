#pragma once

namespace corvane::store {
class DataSet;
}

namespace corvane::ledger {

// Adds to a closed cursor of vouchers the two columns every voucher list shows beside its stored
// fields, and has them calculated for each row: "Periodppyyyy" ("03/2017") and "SourceType"
// ("AP Pmt").
void AddVoucherLabelFields(store::DataSet& vouchers);

// Fills those two columns of a row from its GLPeriod, GLYear, Source and TransType; a history
// line holds the same fields and shows the same labels.
void SetVoucherLabels(store::DataSet& row);

} // namespace corvane::ledger
