#pragma once

#include "reports/engine/TQRPrintable.h"

namespace corvane::reports {

enum class SysDataKind { ReportTitle, PageNumber, PageNumberOfTotal, Date, Time, DateTime };

// What the report knows of itself, after the prefix Text: its title, the page number, "Page n of
// N", the date and the time the run started.
class TQRSysData : public TQRPrintable {
public:
    TQRSysData() = default;
    explicit TQRSysData(SysDataKind data, std::string text = {})
        : Data(data), Text(std::move(text)) {}

    SysDataKind Data = SysDataKind::ReportTitle;
    std::string Text;

    void Print(const PrintContext& context, std::vector<DrawOp>& ops) override;
};

} // namespace corvane::reports
