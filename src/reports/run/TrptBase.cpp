#include "reports/run/TrptBase.h"

namespace corvane::reports {

void TrptBase::ApplyPaper(bool paperIsA4) {
    if (paperIsA4) QuickReport.Page.PaperSize = PaperSize::A4;
}

} // namespace corvane::reports
