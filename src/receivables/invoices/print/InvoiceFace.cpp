#include "receivables/invoices/print/InvoiceFace.h"

#include "receivables/domain/AddressLines.h"
#include "receivables/invoices/print/InvoicePrintRules.h"
#include "receivables/taxes/TaxBuckets.h"
#include "store/DataSet.h"
#include "store/Field.h"

namespace corvane::receivables {

namespace {

std::string Text(store::DataSet& ds, const std::string& field) {
    return ds.FieldByName(field).AsString();
}

std::optional<int> OptionalInt(store::DataSet& ds, const char* field) {
    const store::Field& f = ds.FieldByName(field);
    if (f.IsNull()) return std::nullopt;
    return static_cast<int>(f.AsInteger());
}

bool Flag(store::DataSet& ds, const char* field) {
    const store::Field& f = ds.FieldByName(field);
    return !f.IsNull() && f.AsBoolean();
}

double Rate(store::DataSet& ds, const char* field) {
    const store::Field& f = ds.FieldByName(field);
    return f.IsNull() ? 0.0 : f.AsFloat();
}

} // namespace

std::string InvoiceFaceStatement(bool one) {
    return std::string(
               "SELECT I.ARInvoiceID, I.InvoiceNo, I.InvoiceDate, I.Description, "
               "I.PurchaseOrderNo, I.InvoiceAmount, I.DiscPC, I.DiscDays, I.NetDays, I.COD, "
               "I.Prepayment, I.TermsText, I.Printed, I.TimeInvoice, I.Tax1Code, I.Tax2Code, "
               "I.Tax1Rate, I.Tax2Rate, I.TaxableAmtCode1, I.TaxableAmtCode2, I.TaxableAmtCode3, "
               "I.TaxableAmount1, I.TaxableAmount2, I.TaxableAmount3, "
               "C.CustomerID, C.CustomerNo, C.CustomerName, C.AddressLine1, C.AddressLine2, "
               "C.City, C.StateProv, C.ZipCode, C.Country, C.ShipToName, C.ShipToAddressLine1, "
               "C.ShipToAddressLine2, C.ShipToCity, C.ShipToStateProv, C.ShipToZipCode, "
               "C.ShipToCountry, C.Contact, C.EMail, "
               "T1.TaxDescription Tax1Description, T1.TaxName Tax1Name, "
               "T2.TaxDescription Tax2Description, T2.TaxName Tax2Name "
               "FROM ARInv I "
               "INNER JOIN Customer C ON I.CustomerID = C.CustomerID "
               "LEFT OUTER JOIN Tax T1 ON T1.TaxID = I.Tax1ID "
               "LEFT OUTER JOIN Tax T2 ON T2.TaxID = I.Tax2ID") +
           (one ? " WHERE I.ARInvoiceID = :ARInvoiceID" : " WHERE (I.Printed <> true)") +
           " ORDER BY I.InvoiceNo";
}

InvoiceFace FaceOf(store::DataSet& ds) {
    InvoiceFace face;
    const Money total = ds.FieldByName("InvoiceAmount").AsMoney();
    face.Title = InvoiceTitle(total < Money());
    face.InvoiceNo = Text(ds, "InvoiceNo");
    face.PurchaseOrder = Text(ds, "PurchaseOrderNo");
    face.Description = Text(ds, "Description");
    face.InvoiceDate = ds.FieldByName("InvoiceDate").AsDate();
    face.TimeInvoice = Flag(ds, "TimeInvoice");

    face.SoldTo.push_back(Text(ds, "CustomerName"));
    for (std::string& line :
         AddressLines({Text(ds, "AddressLine1"), Text(ds, "AddressLine2"), Text(ds, "City"),
                       Text(ds, "StateProv"), Text(ds, "ZipCode"), Text(ds, "Country")}))
        face.SoldTo.push_back(std::move(line));
    std::vector<std::string> ship = AddressLines(
        {Text(ds, "ShipToAddressLine1"), Text(ds, "ShipToAddressLine2"), Text(ds, "ShipToCity"),
         Text(ds, "ShipToStateProv"), Text(ds, "ShipToZipCode"), Text(ds, "ShipToCountry")});
    const std::string shipName = Text(ds, "ShipToName");
    if (shipName.empty() && ship.empty()) {
        face.ShipTo.push_back("Same");
    } else {
        face.ShipTo.push_back(shipName);
        for (std::string& line : ship)
            face.ShipTo.push_back(std::move(line));
    }

    InvoiceTerms terms;
    if (!ds.FieldByName("DiscPC").IsNull()) terms.DiscPC = ds.FieldByName("DiscPC").AsFloat();
    terms.DiscDays = OptionalInt(ds, "DiscDays");
    terms.NetDays = OptionalInt(ds, "NetDays");
    terms.COD = Flag(ds, "COD");
    terms.Prepayment = Flag(ds, "Prepayment");
    terms.TermsText = Text(ds, "TermsText");
    face.Terms = PrintedTerms(terms);

    // The taxes anew from the stored buckets and the invoice's own codes and rates, as entry
    // showed them; the subtotal is what is left of the amount.
    TaxBuckets buckets;
    for (int k = 0; k < 3; ++k) {
        const std::string n = std::to_string(k + 1);
        const store::Field& amount = ds.FieldByName("TaxableAmount" + n);
        buckets[static_cast<std::size_t>(k)] = {Text(ds, "TaxableAmtCode" + n),
                                                amount.IsNull() ? Money() : amount.AsMoney()};
    }
    const Money tax1 = TaxAmount(buckets, Text(ds, "Tax1Code"), Rate(ds, "Tax1Rate"));
    const Money tax2 = TaxAmount(buckets, Text(ds, "Tax2Code"), Rate(ds, "Tax2Rate"));
    face.Totals.push_back({"Subtotal", total - tax1 - tax2});
    if (!Text(ds, "Tax1Description").empty())
        face.Totals.push_back({TaxDescriptionRate(Text(ds, "Tax1Description"), Text(ds, "Tax1Name"),
                                                  Rate(ds, "Tax1Rate")),
                               tax1});
    if (!Text(ds, "Tax2Description").empty())
        face.Totals.push_back({TaxDescriptionRate(Text(ds, "Tax2Description"), Text(ds, "Tax2Name"),
                                                  Rate(ds, "Tax2Rate")),
                               tax2});
    face.Totals.push_back({"Invoice Amount", total});
    return face;
}

std::string InvoiceLineStatement() {
    return "SELECT D.Seq, D.Quantity, D.UnitPrice, D.TaxCodes, D.Notes, D.JobID, "
           "It.ItemNo, It.ItemDescription, J.JobName, T.TaskName "
           "FROM ARInvDet D "
           "LEFT OUTER JOIN Item It ON It.ItemID = D.ItemID "
           "LEFT OUTER JOIN Job J ON J.JobID = D.JobID "
           "LEFT OUTER JOIN Task T ON T.TaskID = D.TaskID "
           "WHERE D.ARInvoiceID = :ARInvoiceID ORDER BY D.Seq";
}

InvoiceLineFace LineFaceOf(store::DataSet& ds) {
    InvoiceLineFace line;
    const store::Field& qty = ds.FieldByName("Quantity");
    const store::Field& price = ds.FieldByName("UnitPrice");
    if (!qty.IsNull()) line.Quantity = qty.AsFloat();
    if (!price.IsNull()) line.UnitPrice = price.AsMoney();
    if (line.Quantity && line.UnitPrice)
        line.ExtAmount = line.UnitPrice->TimesRounded(*line.Quantity);
    line.ItemNo = Text(ds, "ItemNo");
    if (!ds.FieldByName("JobID").IsNull()) {
        // A job or task that no longer exists leaves its part out.
        const std::string job = Text(ds, "JobName"), task = Text(ds, "TaskName");
        line.Description = job.empty() || task.empty() ? job + task : job + " - " + task;
    } else {
        line.Description = Text(ds, "ItemDescription");
    }
    line.TaxCodes = Text(ds, "TaxCodes");
    line.Notes = Text(ds, "Notes");
    return line;
}

} // namespace corvane::receivables
