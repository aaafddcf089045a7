#include "receivables/invoices/print/TrptARInvoice.h"

#include "core/DateEntry.h"
#include "core/DisplayFormat.h"
#include "receivables/invoices/print/BitmapImage.h"
#include "receivables/invoices/print/InvoiceFace.h"
#include "receivables/reports/StatementHeader.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRMemo.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::receivables {

using namespace reports;

namespace {

constexpr const char* kAmountMask = "#,###,##0.00;(#,###,##0.00)";
constexpr const char* kPriceMask = "#,###,##0.00###;(#,###,##0.00###)";
constexpr const char* kQuantityMask = "#,##0.00";

// Columns of the lines: quantity, item, description, price, tax codes, amount.
constexpr double QtyLeft = 0, QtyWidth = 58;
constexpr double ItemLeft = 64, ItemWidth = 64;
constexpr double DescLeft = 130, DescWidth = 200;
constexpr double PriceLeft = 334, PriceWidth = 76;
constexpr double TaxLeft = 414, TaxWidth = 34;
constexpr double AmountLeft = 452, AmountWidth = 88;

std::string CompanyText(store::Database& db, const char* field) {
    store::Query q(db, std::string("SELECT ") + field + " FROM Company");
    q.Open();
    return q.IsEmpty() ? std::string() : q.Fields()[0]->AsString();
}

TQRLabel& Label(TQRBand& band, std::string caption, double left, double top, double width,
                bool bold = false, Align align = Align::Left) {
    auto& label = band.Add<TQRLabel>(std::move(caption));
    label.SetBounds(left, top, width, 12);
    label.Font.bold = bold;
    label.Alignment = align;
    return label;
}

} // namespace

int CompanyInvoiceStyle(store::Database& db) {
    const std::string style = CompanyText(db, "ARInvoiceStyle");
    return style == "1" ? TrptARInvoice::Professional : TrptARInvoice::Classic;
}

int CompanyInvoiceCopies(store::Database& db) {
    const std::string copies = CompanyText(db, "ARInvoiceCopies");
    const int n = copies.empty() ? 1 : std::atoi(copies.c_str());
    return n < 1 ? 1 : n;
}

TrptARInvoice::TrptARInvoice(store::Database& db, std::optional<std::int64_t> arInvoiceId)
    : TrptARInvoice(db, arInvoiceId, CompanyInvoiceStyle(db)) {}

TrptARInvoice::TrptARInvoice(store::Database& db, std::optional<std::int64_t> arInvoiceId,
                             int style)
    : qryInvoice(db, InvoiceFaceStatement(arInvoiceId.has_value())),
      qryLines(db, InvoiceLineStatement()), id_(arInvoiceId), style_(style) {
    Build(db);
}

void TrptARInvoice::Build(store::Database& db) {
    const bool pro = style_ == Professional;
    qryInvoice.Name = "qryInvoice";
    qryLines.Name = "qryLines";
    qryLines.AddCalculatedField("ExtAmount", store::FieldType::Currency);
    qryLines.AddCalculatedField("LineDescription", store::FieldType::String, 120);
    qryLines.OnCalcFields = [](store::DataSet& ds) {
        const InvoiceLineFace line = LineFaceOf(ds);
        if (line.ExtAmount) ds.FieldByName("ExtAmount").SetAsMoney(*line.ExtAmount);
        ds.FieldByName("LineDescription").SetAsString(line.Description);
    };
    message_ = CompanyText(db, "ARInvoiceMessage");
    QuickReport.ReportTitle = "Invoice";
    QuickReport.DataSet = &qryInvoice;

    // ----- the top of each page
    TQRBand& header = QuickReport.Band(BandKind::PageHeader, 0);
    double left = 0;
    if (pro) {
        store::Query logo(db, "SELECT Logo FROM Logo");
        logo.Open();
        if (!logo.IsEmpty() && !logo.Fields()[0]->IsNull()) {
            const store::Value value = logo.Fields()[0]->AsValue();
            if (value.kind() == store::Value::Kind::Blob)
                if (auto image = DecodeBitmap(value.BlobValue().Bytes)) {
                    auto& picture = header.Add<TQRImage>();
                    // At most 72 points high, in proportion.
                    const double h = std::min(72.0, static_cast<double>(image->Height));
                    const double w = h * image->Width / image->Height;
                    picture.SetBounds(0, 0, w, h);
                    picture.PixelWidth = image->Width;
                    picture.PixelHeight = image->Height;
                    picture.Rgb = std::move(image->Rgb);
                    left = w + 10;
                }
        }
    }
    double y = 0;
    for (const std::string& line : CompanyBlock(db)) {
        auto& label = Label(header, line, left, y, 280 - left, y == 0);
        if (y == 0) label.Font.size = pro ? 13 : 12;
        y += y == 0 ? 16 : 12;
    }
    title_ = &Label(header, "Invoice", 300, 0, 240, true, Align::Right);
    title_->Font.size = pro ? 20 : 16;
    title_->Height = 24;
    if (pro) {
        auto& bar = header.Add<TQRShape>(ShapeKind::Rectangle);
        bar.SetBounds(300, 28, 240, 50);
        bar.Brush = {235, 235, 235};
    }
    const double infoTop = pro ? 32 : 28;
    const char* captions[] = {"Invoice no.", "Invoice Date", "Purchase Order"};
    TQRLabel** values[] = {&invoiceNo_, &invoiceDate_, &purchaseOrder_};
    for (int i = 0; i < 3; ++i) {
        Label(header, captions[i], 306, infoTop + 12 * i, 110, pro);
        *values[i] = &Label(header, "", 420, infoTop + 12 * i, 114, false, Align::Right);
    }
    page_ = &Label(header, "", 420, infoTop + 36, 114, false, Align::Right);

    const double addressTop = std::max(y, 84.0) + 12;
    const double captionIndent = pro ? 6 : 0;
    Label(header, "Sold to", captionIndent, addressTop, 200, true);
    Label(header, "Ship to", 280 + captionIndent, addressTop, 200, true);
    for (std::size_t i = 0; i < soldTo_.size(); ++i) {
        soldTo_[i] = &Label(header, "", 12, addressTop + 14 + 12 * static_cast<double>(i), 250);
        shipTo_[i] = &Label(header, "", 292, addressTop + 14 + 12 * static_cast<double>(i), 248);
    }
    if (pro) {
        header.Add<TQRShape>(ShapeKind::Frame).SetBounds(0, addressTop - 4, 260, 82);
        header.Add<TQRShape>(ShapeKind::Frame).SetBounds(280, addressTop - 4, 260, 82);
    }
    const double descTop = addressTop + 86;
    description_ = &Label(header, "", 0, descTop, 540);
    terms_ = &Label(header, "", 0, descTop + 12, 540);
    const double headTop = descTop + 30;
    if (pro) {
        auto& bar = header.Add<TQRShape>(ShapeKind::Rectangle);
        bar.SetBounds(0, headTop - 2, 540, 16);
        bar.Brush = {220, 220, 220};
    }
    quantityHeading_ = &Label(header, "Quantity", QtyLeft, headTop, QtyWidth, true, Align::Right);
    Label(header, "Item no.", ItemLeft, headTop, ItemWidth, true);
    Label(header, "Description", DescLeft, headTop, DescWidth, true);
    priceHeading_ =
        &Label(header, "Unit Price", PriceLeft, headTop, PriceWidth, true, Align::Right);
    Label(header, "Tax", TaxLeft, headTop, TaxWidth, true);
    Label(header, "Amount", AmountLeft, headTop, AmountWidth, true, Align::Right);
    if (!pro) header.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, headTop + 12, 540, 12);
    header.Height = headTop + (pro ? 18 : 24);
    header.BeforePrint = [this](TQRBand&, bool&) { FillHeader(); };

    // ----- one group for each invoice, its lines under it
    TQRGroup& invoice = QuickReport.AddGroup("ARInvoiceID", 0);
    invoice.ForceNewPage = true;
    TQRBand& detail = QuickReport.Band(BandKind::Detail, 0);
    detail.BeforePrint = [this](TQRBand&, bool&) {
        qryLines.Close();
        qryLines.ParamByName("ARInvoiceID")
            .SetValue(qryInvoice.FieldByName("ARInvoiceID").AsValue());
        qryLines.Open();
    };
    TQRSubDetail& lines = QuickReport.AddSubDetail(qryLines, 13);
    auto& qty = lines.Add<TQRDBText>(&qryLines, "Quantity");
    qty.SetBounds(QtyLeft, 1, QtyWidth, 12);
    qty.Alignment = Align::Right;
    qty.Mask = kQuantityMask;
    lines.Add<TQRDBText>(&qryLines, "ItemNo").SetBounds(ItemLeft, 1, ItemWidth, 12);
    lines.Add<TQRDBText>(&qryLines, "LineDescription").SetBounds(DescLeft, 1, DescWidth, 12);
    auto& price = lines.Add<TQRDBText>(&qryLines, "UnitPrice");
    price.SetBounds(PriceLeft, 1, PriceWidth, 12);
    price.Alignment = Align::Right;
    price.Mask = kPriceMask;
    lines.Add<TQRDBText>(&qryLines, "TaxCodes").SetBounds(TaxLeft, 1, TaxWidth, 12);
    auto& amount = lines.Add<TQRDBText>(&qryLines, "ExtAmount");
    amount.SetBounds(AmountLeft, 1, AmountWidth, 12);
    amount.Alignment = Align::Right;
    amount.Mask = kAmountMask;
    TQRBand& notes = lines.ChildBand(0);
    auto& notesText = notes.Add<TQRMemo>();
    notesText.DataSet = &qryLines;
    notesText.DataField = "Notes";
    notesText.SetBounds(DescLeft + 8, 0, DescWidth + 80, 0);
    notesText.Font.size = 8;
    notesText.Font.italic = true;
    notes.BeforePrint = [this](TQRBand&, bool& print) {
        print = !qryLines.FieldByName("Notes").AsString().empty();
    };

    // ----- the totals and the message
    TQRBand& footer = invoice.FooterBand(68);
    footer.Add<TQRShape>(ShapeKind::HorLine).SetBounds(PriceLeft, 0, 540 - PriceLeft, 10);
    for (std::size_t i = 0; i < totalCaptions_.size(); ++i) {
        const double top = 12 + 12 * static_cast<double>(i);
        const bool last = i + 1 == totalCaptions_.size();
        totalCaptions_[i] = &Label(footer, "", 250, top, 196, last, Align::Right);
        totalAmounts_[i] = &Label(footer, "", AmountLeft, top, AmountWidth, last, Align::Right);
    }
    if (pro) {
        auto& box = footer.Add<TQRShape>(ShapeKind::Frame);
        box.SetBounds(AmountLeft - 4, 46, AmountWidth + 4, 16);
    }
    footer.BeforePrint = [this](TQRBand&, bool&) { FillTotals(); };
    if (!message_.empty()) {
        auto& message = footer.Add<TQRMemo>();
        message.Lines = message_;
        message.SetBounds(0, 68, 540, 12);
        message.Font.italic = pro;
    }
}

void TrptARInvoice::FillHeader() {
    const std::int64_t id = qryInvoice.FieldByName("ARInvoiceID").AsInteger();
    if (id != lastInvoice_) {
        lastInvoice_ = id;
        invoicePage_ = 1;
    } else {
        ++invoicePage_;
    }
    const InvoiceFace face = FaceOf(qryInvoice);
    page_->Caption = invoicePage_ > 1 ? "Page " + std::to_string(invoicePage_) : "";
    title_->Caption = face.Title;
    invoiceNo_->Caption = face.InvoiceNo;
    invoiceDate_->Caption = FormatDate("mmm d, yyyy", face.InvoiceDate);
    purchaseOrder_->Caption = face.PurchaseOrder;
    for (std::size_t i = 0; i < soldTo_.size(); ++i) {
        soldTo_[i]->Caption = i < face.SoldTo.size() ? face.SoldTo[i] : "";
        shipTo_[i]->Caption = i < face.ShipTo.size() ? face.ShipTo[i] : "";
    }
    description_->Caption = face.Description;
    terms_->Caption = face.Terms;
    quantityHeading_->Caption = face.TimeInvoice ? "Hours/Qty" : "Quantity";
    priceHeading_->Caption = face.TimeInvoice ? "Rate/Unit Price" : "Unit Price";
}

void TrptARInvoice::FillTotals() {
    std::vector<std::pair<std::string, Money>> rows = FaceOf(qryInvoice).Totals;
    // The amount always on the last line, in its box.
    while (rows.size() < totalCaptions_.size())
        rows.insert(rows.end() - 1, {"", Money()});
    for (std::size_t i = 0; i < totalCaptions_.size(); ++i) {
        totalCaptions_[i]->Caption = rows[i].first;
        totalAmounts_[i]->Caption =
            rows[i].first.empty() ? "" : FormatMoney(kAmountMask, rows[i].second);
    }
}

void TrptARInvoice::Open() {
    lastInvoice_ = -1;
    qryInvoice.Close();
    if (id_) qryInvoice.ParamByName("ARInvoiceID").SetAsInteger(*id_);
    qryInvoice.Open();
    qryInvoice.First();
}

} // namespace corvane::receivables
