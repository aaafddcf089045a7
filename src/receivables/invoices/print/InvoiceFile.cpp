#include "receivables/invoices/print/InvoiceFile.h"

#include "core/DateEntry.h"
#include "core/DisplayFormat.h"
#include "core/Exception.h"
#include "receivables/invoices/print/InvoiceFace.h"
#include "reports/export/SheetWriter.h"
#include "store/Query.h"

#include <cstdio>
#include <filesystem>
#include <fstream>

namespace corvane::receivables {

namespace {

constexpr const char* kAmount = "#,###,##0.00;-#,###,##0.00";

} // namespace

std::vector<std::vector<std::string>> InvoiceFileRows(store::Database& db,
                                                      std::int64_t arInvoiceId) {
    store::Query invoice(db, InvoiceFaceStatement(true));
    invoice.ParamByName("ARInvoiceID").SetAsInteger(arInvoiceId);
    invoice.Open();
    if (invoice.IsEmpty()) throw Exception("Invoice has been deleted by another user.");
    const InvoiceFace face = FaceOf(invoice);

    std::vector<std::vector<std::string>> rows;
    rows.push_back({"Sold to", face.SoldTo.empty() ? "" : face.SoldTo.front()});
    for (std::size_t i = 1; i < face.SoldTo.size(); ++i)
        rows.push_back({"", face.SoldTo[i]});
    rows.push_back({"Ship to", face.ShipTo.front()});
    for (std::size_t i = 1; i < face.ShipTo.size(); ++i)
        rows.push_back({"", face.ShipTo[i]});
    rows.push_back({"Invoice no.", face.InvoiceNo});
    rows.push_back({"Invoice Date", DateToStr(face.InvoiceDate)});
    rows.push_back({"Purchase Order", face.PurchaseOrder});
    rows.push_back({"Invoice Description", face.Description});
    rows.push_back({});
    rows.push_back({face.TimeInvoice ? "Hours/Qty" : "Quantity", "Item no.", "Description",
                    face.TimeInvoice ? "Rate/Unit Price" : "Unit Price", "Tax", "Amount"});
    store::Query lines(db, InvoiceLineStatement());
    lines.ParamByName("ARInvoiceID").SetAsInteger(arInvoiceId);
    for (lines.Open(); !lines.Eof(); lines.Next()) {
        const InvoiceLineFace line = LineFaceOf(lines);
        rows.push_back({line.Quantity ? FormatFloat("0.####", *line.Quantity) : "", line.ItemNo,
                        line.Description,
                        line.UnitPrice ? FormatMoney("0.00###;-0.00###", *line.UnitPrice) : "",
                        line.TaxCodes,
                        line.ExtAmount ? FormatMoney(kAmount, *line.ExtAmount) : ""});
    }
    rows.push_back({});
    for (const auto& [caption, amount] : face.Totals)
        rows.push_back({"", "", "", caption, "", FormatMoney(kAmount, amount)});
    return rows;
}

void WriteInvoiceFile(store::Database& db, std::int64_t arInvoiceId, const std::string& path) {
    const std::vector<std::vector<std::string>> rows = InvoiceFileRows(db, arInvoiceId);
    if (reports::FileExtension(path) == "xlsx") {
        reports::SheetWriter sheet(path, "ARInvoice");
        for (const auto& row : rows) {
            std::vector<reports::SheetCell> cells;
            for (std::size_t c = 0; c < row.size(); ++c) {
                // Prices and amounts go in as numbers, to add up in the sheet.
                auto money = (c == 3 || c == 5) && !row[c].empty() ? Money::Parse(row[c])
                                                                   : std::optional<Money>();
                cells.push_back(money ? reports::SheetCell::Number(money->ToDouble(), "#,##0.00")
                                      : reports::SheetCell::Text(row[c]));
            }
            sheet.AddRow(cells);
        }
        sheet.Finish();
        return;
    }
    std::ofstream out(path, std::ios::binary | std::ios::trunc);
    if (!out) throw Exception("Unable to write '" + path + "'");
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i)
            out << (i ? "\t" : "") << row[i];
        out << "\r\n";
    }
    out.close();
    if (!out) {
        std::filesystem::remove(path);
        throw Exception("Unable to write '" + path + "'");
    }
}

} // namespace corvane::receivables
