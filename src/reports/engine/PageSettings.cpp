#include "reports/engine/PageSettings.h"

namespace corvane::reports {

namespace {

int PortraitWidth(PaperSize size) {
    return size == PaperSize::A4 ? 2100 : 2159;
}

int PortraitLength(PaperSize size) {
    return size == PaperSize::A4 ? 2970 : 2794;
}

} // namespace

int TQRPage::PaperWidth() const {
    return Orientation == reports::Orientation::Portrait ? PortraitWidth(PaperSize)
                                                         : PortraitLength(PaperSize);
}

int TQRPage::PaperLength() const {
    return Orientation == reports::Orientation::Portrait ? PortraitLength(PaperSize)
                                                         : PortraitWidth(PaperSize);
}

} // namespace corvane::reports
