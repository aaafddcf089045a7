#include "reports/system/StandardBands.h"

#include "reports/engine/TQRBand.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRShape.h"
#include "reports/engine/TQRSysData.h"
#include "reports/engine/TQuickRep.h"
#include "store/Database.h"
#include "store/Table.h"

namespace corvane::reports {

std::string CompanyNameOf(store::Database& db) {
    store::Table company(db, "Company");
    company.Open();
    company.First();
    return company.IsEmpty() ? std::string() : company.FieldByName("CompanyName").AsString();
}

void AddStandardTitle(TQuickRep& report, const std::string& companyName, double width) {
    TQRBand& title = report.Band(BandKind::Title, 36);
    auto& company = title.Add<TQRLabel>(companyName);
    company.SetBounds(0, 0, width, 12);
    company.Alignment = Align::Center;
    company.Font.bold = true;
    auto& name = title.Add<TQRSysData>(SysDataKind::ReportTitle);
    name.SetBounds(0, 12, width, 14);
    name.Alignment = Align::Center;
    name.Font.size = 12;
    name.Font.bold = true;
}

void AddStandardPageFooter(TQuickRep& report, double width) {
    TQRBand& footer = report.Band(BandKind::PageFooter, 24);
    footer.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 0, width, 6);
    footer.Add<TQRSysData>(SysDataKind::PageNumberOfTotal).SetBounds(0, 12, width / 2, 12);
    auto& printed = footer.Add<TQRSysData>(SysDataKind::DateTime);
    printed.SetBounds(width / 2, 12, width / 2, 12);
    printed.Alignment = Align::Right;
}

} // namespace corvane::reports
