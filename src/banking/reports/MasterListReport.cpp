#include "banking/reports/MasterListReport.h"

#include "ledger/reports/ListView.h"
#include "ledger/reports/ReportColumns.h"
#include "reports/engine/TQRDBText.h"
#include "reports/engine/TQRExpr.h"
#include "reports/engine/TQRShape.h"
#include "reports/system/StandardBands.h"
#include "shell/patterns/ListForm.h"

namespace corvane::banking {

using namespace reports;

MasterListReport::MasterListReport(store::Database& db, std::string_view tableName,
                                   std::string title, std::string indexName,
                                   std::initializer_list<ListColumn> columns)
    : Rows(db, std::string(tableName)) {
    Rows.Name = "tbl" + std::string(tableName);
    Rows.SetIndexName(indexName);
    QuickReport.ReportTitle = std::move(title);
    QuickReport.DataSet = &Rows;
    AddStandardTitle(QuickReport, CompanyNameOf(db));

    constexpr double gap = 8;
    TQRBand& heads = QuickReport.Band(BandKind::ColumnHeader, 24);
    TQRBand& detail = QuickReport.Band(BandKind::Detail, 12);
    double left = 0;
    for (const ListColumn& column : columns) {
        const bool amount = !column.Mask.empty();
        ledger::AddHeading(heads, std::string(column.Heading), left, column.Width, amount);
        auto& text = detail.Add<TQRDBText>(nullptr, std::string(column.Field));
        text.SetBounds(left, 0, column.Width, 12);
        if (amount) {
            text.Mask = std::string(column.Mask);
            text.Alignment = Align::Right;
        }
        left += column.Width + gap;
    }
    heads.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 12, kPortraitWidth, 12);

    TQRBand& summary = QuickReport.Band(BandKind::Summary, 24);
    summary.Add<TQRShape>(ShapeKind::HorLine).SetBounds(0, 0, kPortraitWidth, 12);
    summary.Add<TQRLabel>("Count:").SetBounds(0, 12, 80, 12);
    summary.Add<TQRExpr>("COUNT").SetBounds(90, 12, 100, 12);
    AddStandardPageFooter(QuickReport);
}

void MasterListReport::FollowList(const shell::ListForm& list) {
    ledger::FollowList(list.MainTable, Rows);
}

void MasterListReport::Open() {
    Rows.Open();
    Rows.First();
}

TrptBanks::TrptBanks(store::Database& db)
    : MasterListReport(db, "Bank", "Banks", "BankName1",
                       {{"BankName", "Name", 220},
                        {"CurrencyID", "Currency", 70},
                        {"BankGLAccountID", "GL Account", 70}}) {}

} // namespace corvane::banking
