#include "ledger/reports/TrptGLAccounts.h"

#include "ledger/accounts/AccountTypes.h"
#include "ledger/reports/ReportColumns.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"

namespace corvane::ledger {

using namespace reports;

namespace {

constexpr double NumberLeft = 0, NumberWidth = 80;
constexpr double NameLeft = 90, NameWidth = 260;
constexpr double TypeLeft = 360, TypeWidth = 80;
constexpr double SuspendedLeft = 450, SuspendedWidth = 90;

} // namespace

TrptGLAccounts::TrptGLAccounts(store::Database& db) : tblGLAccnt(db, "GLAccnt") {
    tblGLAccnt.Name = "tblGLAccnt";
    tblGLAccnt.SetIndexName("GLAccount");
    tblGLAccnt.AddCalculatedField("AccountTypeLabel", store::FieldType::String, 12);
    tblGLAccnt.AddCalculatedField("SuspendedText", store::FieldType::String, 3);
    tblGLAccnt.OnCalcFields = [](store::DataSet& ds) {
        ds.FieldByName("AccountTypeLabel")
            .SetAsString(AccountTypeLabel(ds.FieldByName("AccountType").AsInteger()));
        ds.FieldByName("SuspendedText")
            .SetAsString(ds.FieldByName("Suspended").AsBoolean() ? "Yes" : "");
    };
    QuickReport.ReportTitle = "GL Accounts";
    QuickReport.DataSet = &tblGLAccnt;
    AddStandardTitle(QuickReport, CompanyNameOf(db));

    TQRBand& columns = QuickReport.Band(BandKind::ColumnHeader, 24);
    AddHeading(columns, "Account no.", NumberLeft, NumberWidth);
    AddHeading(columns, "Name", NameLeft, NameWidth);
    AddHeading(columns, "Type", TypeLeft, TypeWidth);
    AddHeading(columns, "Suspended", SuspendedLeft, SuspendedWidth);
    columns.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, kPortraitWidth, 12);

    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    detail.Add<TQRDBText>(nullptr, "GLAccount").SetBounds(NumberLeft, 0, NumberWidth, 12);
    detail.Add<TQRDBText>(nullptr, "AccountName").SetBounds(NameLeft, 0, NameWidth, 12);
    detail.Add<TQRDBText>(nullptr, "AccountTypeLabel").SetBounds(TypeLeft, 0, TypeWidth, 12);
    detail.Add<TQRDBText>(nullptr, "SuspendedText").SetBounds(SuspendedLeft, 0, SuspendedWidth, 12);

    TQRBand& summary = QuickReport.Band(BandKind::Summary, 24);
    summary.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 0, kPortraitWidth, 12);
    summary.Add<TQRLabel>("Accounts:").SetBounds(NumberLeft, 12, NumberWidth, 12);
    summary.Add<TQRExpr>("COUNT").SetBounds(NameLeft, 12, NameWidth, 12);

    AddStandardPageFooter(QuickReport);
}

void TrptGLAccounts::Open() {
    tblGLAccnt.Open();
    tblGLAccnt.First();
}

} // namespace corvane::ledger
