#include "reports/engine/TQuickRep.h"

#include "reports/engine/ReportRun.h"

#include <stdexcept>

namespace corvane::reports {

TQuickRep::TQuickRep() = default;
TQuickRep::~TQuickRep() = default;

TQRBand& TQuickRep::Band(BandKind kind, double height) {
    if (kind == BandKind::GroupHeader || kind == BandKind::GroupFooter ||
        kind == BandKind::SubDetail || kind == BandKind::Child)
        throw std::logic_error("Groups, sub-details and child bands are added through their own "
                               "calls");
    if (TQRBand* band = FindBand(kind)) return *band;
    bands_.push_back(std::make_unique<TQRBand>(kind, height));
    return *bands_.back();
}

TQRBand* TQuickRep::FindBand(BandKind kind) const {
    for (const auto& band : bands_)
        if (band->Kind() == kind) return band.get();
    return nullptr;
}

TQRGroup& TQuickRep::AddGroup(std::string expression, double height) {
    groups_.push_back(std::make_unique<TQRGroup>(std::move(expression), height));
    return *groups_.back();
}

TQRSubDetail& TQuickRep::AddSubDetail(store::DataSet& dataSet, double height) {
    subDetails_.push_back(std::make_unique<TQRSubDetail>(dataSet, height));
    return *subDetails_.back();
}

void TQuickRep::Prepare(ReportDocument& document) {
    ReportRun(*this, document).Run();
}

double TQuickRep::PageWidthPoints() const {
    return TenthsMmToPoints(Page.PaperWidth());
}

double TQuickRep::PageHeightPoints() const {
    return TenthsMmToPoints(Page.PaperLength());
}

} // namespace corvane::reports
