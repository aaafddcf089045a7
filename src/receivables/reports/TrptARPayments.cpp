#include "receivables/reports/TrptARPayments.h"

#include "receivables/posting/InvoicePosting.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRLabel.h"

namespace corvane::receivables {

namespace {

constexpr double kAmountLeft = 432, kAmountWidth = 76;
constexpr const char* kAmountMask = "#,###,##0.00;(#,###,##0.00)";

} // namespace

TrptARPayments::TrptARPayments(store::Database& db, bool checkWording)
    : MasterListReport(db, "ARPmt", "AR Payments", "PaymentDateChequeNoDESC",
                       {{"PaymentDate", "Date", 56},
                        {"Period", "Period", 40},
                        {"ChequeNo", "Reference", 56},
                        {"CustomerNo", "Customer no.", 66},
                        {"CustomerName", "Name", 96},
                        {"PaidByText", "Paid by", 70},
                        {"ChequeAmount", "Amount", kAmountWidth, kAmountMask}}),
      tblCustomer(db, "Customer") {
    tblCustomer.Open();
    Rows.AddLookupField("CustomerNo", store::FieldType::String, 10, "CustomerID", tblCustomer,
                        "CustomerID", "CustomerNo");
    Rows.AddLookupField("CustomerName", store::FieldType::String, 40, "CustomerID", tblCustomer,
                        "CustomerID", "CustomerName");
    Rows.AddCalculatedField("Period", store::FieldType::String, 8);
    Rows.AddCalculatedField("PaidByText", store::FieldType::String, 20);
    Rows.OnCalcFields = [checkWording](store::DataSet& ds) {
        const store::Field& period = ds.FieldByName("GLPeriod");
        const store::Field& year = ds.FieldByName("GLYear");
        ds.FieldByName("Period").SetAsString(period.IsNull() || year.IsNull()
                                                 ? std::string()
                                                 : period.AsString() + "/" + year.AsString());
        ds.FieldByName("PaidByText")
            .SetAsString(PaidByText(ds.FieldByName("PaidBy"), checkWording));
    };

    using namespace reports;
    TQRBand& summary = *QuickReport.FindBand(BandKind::Summary);
    auto& label = summary.Add<TQRLabel>("Total:");
    label.SetBounds(kAmountLeft - 90, 12, 80, 12);
    label.Alignment = Align::Right;
    auto& total = summary.Add<TQRExpr>("SUM(ChequeAmount)");
    total.SetBounds(kAmountLeft, 12, kAmountWidth, 12);
    total.Alignment = Align::Right;
    total.Mask = kAmountMask;
}

} // namespace corvane::receivables
