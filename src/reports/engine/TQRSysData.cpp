#include "reports/engine/TQRSysData.h"

#include "core/DateEntry.h"
#include "reports/engine/TQuickRep.h"
#include "reports/page/PageText.h"

#include <cstdio>

namespace corvane::reports {

namespace {

std::string TimeText(const ReportTimestamp& at) {
    char buffer[16];
    std::snprintf(buffer, sizeof buffer, "%02d:%02d:%02d", at.hour, at.minute, at.second);
    return buffer;
}

} // namespace

void TQRSysData::Print(const PrintContext& context, std::vector<DrawOp>& ops) {
    const ReportTimestamp at = context.report.Timestamp();
    std::string value;
    switch (Data) {
    case SysDataKind::ReportTitle:
        value = context.report.ReportTitle;
        break;
    case SysDataKind::PageNumber:
        value = std::to_string(context.pageNumber);
        break;
    case SysDataKind::PageNumberOfTotal:
        // The total is known only when the last page is made; renderers put it in.
        value =
            "Page " + std::to_string(context.pageNumber) + " of " + std::string(kPageTotalToken);
        break;
    case SysDataKind::Date:
        value = DateToStr(at.date);
        break;
    case SysDataKind::Time:
        value = TimeText(at);
        break;
    case SysDataKind::DateTime:
        value = DateToStr(at.date) + " " + TimeText(at);
        break;
    }
    AddText(ops, Text + value);
}

} // namespace corvane::reports
