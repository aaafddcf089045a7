#include "reports/system/TrptUsers.h"

#include "reports/engine/TQRBand.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRLabel.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"
#include "store/Database.h"

namespace corvane::reports {

namespace {

constexpr double NameLeft = 0;
constexpr double NameWidth = 220;
constexpr double SecurityLeft = 240;
constexpr double SecurityWidth = 80;

} // namespace

TrptUsers::TrptUsers(store::Database& db) : tblUsers(db, "Users") {
    tblUsers.Name = "tblUsers";
    QuickReport.ReportTitle = "Users";
    QuickReport.DataSet = &tblUsers;
    AddStandardTitle(QuickReport, CompanyNameOf(db));

    TQRBand& columns = QuickReport.Band(BandKind::ColumnHeader, 24);
    auto& nameHeading = columns.Add<TQRLabel>("User name");
    nameHeading.SetBounds(NameLeft, 0, NameWidth, 12);
    nameHeading.Font.bold = true;
    auto& securityHeading = columns.Add<TQRLabel>("Security");
    securityHeading.SetBounds(SecurityLeft, 0, SecurityWidth, 12);
    securityHeading.Font.bold = true;
    columns.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, kPortraitWidth, 12);

    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    detail.Add<TQRDBText>(nullptr, "UserName").SetBounds(NameLeft, 0, NameWidth, 12);
    detail.Add<TQRDBText>(nullptr, "Security").SetBounds(SecurityLeft, 0, SecurityWidth, 12);

    AddStandardPageFooter(QuickReport);
}

void TrptUsers::Open() {
    if (!tblUsers.Active()) tblUsers.Open();
    tblUsers.First();
}

} // namespace corvane::reports
