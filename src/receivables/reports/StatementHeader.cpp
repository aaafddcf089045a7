#include "receivables/reports/StatementHeader.h"

#include "receivables/domain/AddressLines.h"
#include "receivables/domain/Aging.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQuickRep.h"
#include "reports/system/StandardBands.h"
#include "store/Query.h"

namespace corvane::receivables {

using namespace reports;

std::vector<std::string> CompanyBlock(store::Database& db) {
    std::vector<std::string> lines;
    store::Query q(db, "SELECT CompanyName, AddressLine1, AddressLine2, AddressLine3, Phone "
                       "FROM Company");
    q.Open();
    if (q.IsEmpty()) return lines;
    for (const auto& field : q.Fields())
        if (!field->AsString().empty()) lines.push_back(field->AsString());
    return lines;
}

StatementHeader::StatementHeader(store::Database& db, TQuickRep& report, store::DataSet& data,
                                 const std::string& title, Date asOf)
    : data_(data) {
    TQRBand& header = report.Band(BandKind::PageHeader, 150);
    double y = 0;
    for (const std::string& line : CompanyBlock(db)) {
        auto& label = header.Add<TQRLabel>(line);
        label.SetBounds(0, y, 300, 12);
        if (y == 0) label.Font.bold = true;
        y += 12;
    }
    auto& titleLabel = header.Add<TQRLabel>(title);
    titleLabel.SetBounds(300, 0, kPortraitWidth - 300, 16);
    titleLabel.Alignment = Align::Right;
    titleLabel.Font.size = 14;
    titleLabel.Font.bold = true;
    auto& date = header.Add<TQRLabel>(StatementDate(asOf));
    date.SetBounds(300, 18, kPortraitWidth - 300, 12);
    date.Alignment = Align::Right;
    page_ = &header.Add<TQRLabel>();
    page_->SetBounds(300, 30, kPortraitWidth - 300, 12);
    page_->Alignment = Align::Right;

    const double top = std::max(y, 42.0) + 18;
    for (std::size_t i = 0; i < customer_.size(); ++i) {
        customer_[i] = &header.Add<TQRLabel>();
        customer_[i]->SetBounds(36, top + 12 * static_cast<double>(i), 300, 12);
    }
    customer_[0]->Font.bold = true;
    header.Height = top + 12 * static_cast<double>(customer_.size()) + 12;
    header.BeforePrint = [this](TQRBand&, bool&) { Fill(); };
}

void StatementHeader::Fill() {
    const std::int64_t customer = data_.FieldByName("CustomerID").AsInteger();
    if (customer != lastCustomer_) {
        lastCustomer_ = customer;
        customerPage_ = 1;
    } else {
        ++customerPage_;
    }
    page_->Caption = customerPage_ > 1 ? "Page " + std::to_string(customerPage_) : "";
    PostalAddress address{
        data_.FieldByName("AddressLine1").AsString(), data_.FieldByName("AddressLine2").AsString(),
        data_.FieldByName("City").AsString(),         data_.FieldByName("StateProv").AsString(),
        data_.FieldByName("ZipCode").AsString(),      data_.FieldByName("Country").AsString()};
    std::vector<std::string> lines{data_.FieldByName("CustomerName").AsString()};
    for (std::string& line : AddressLines(address))
        lines.push_back(std::move(line));
    for (std::size_t i = 0; i < customer_.size(); ++i)
        customer_[i]->Caption = i < lines.size() ? lines[i] : std::string();
}

} // namespace corvane::receivables
