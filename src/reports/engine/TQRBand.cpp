#include "reports/engine/TQRBand.h"

namespace corvane::reports {

bool TQRBand::Grows() const {
    for (const auto& object : objects_)
        if (object->Enabled && object->Grows()) return true;
    return false;
}

TQRBand& TQRBand::ChildBand(double height) {
    if (!child_) child_ = std::make_unique<TQRBand>(BandKind::Child, height);
    return *child_;
}

TQRBand& TQRGroup::FooterBand(double height) {
    if (!footer_) footer_ = std::make_unique<TQRBand>(BandKind::GroupFooter, height);
    return *footer_;
}

} // namespace corvane::reports
