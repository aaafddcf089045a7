#pragma once

#include "reports/engine/PageSettings.h"
#include "reports/engine/ReportTimestamp.h"
#include "reports/engine/TQRBand.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace corvane::store {
class DataSet;
}

namespace corvane::reports {

class ReportDocument;

struct TQROptions {
    bool FirstPageHeader = true; // the page header prints on page 1 too
    bool LastPageFooter = true;  // the page footer prints on the last page too
};

// A banded report: its bands, its paper and the dataset whose rows drive the detail band.
// Prepare lays out every page into a document, reading the dataset from its current order and
// filter one row at a time, so that page 1 is there long before the last row is read.
class TQuickRep {
public:
    TQuickRep();
    ~TQuickRep();
    TQuickRep(const TQuickRep&) = delete;
    TQuickRep& operator=(const TQuickRep&) = delete;

    std::string ReportTitle;
    TQROptions Options;
    bool PrintIfEmpty = false;
    TQRPage Page;
    TQRPrinterSettings PrinterSettings;
    store::DataSet* DataSet = nullptr; // a table or query; opened by Prepare if closed
    // More datasets that expressions may name as "Table.Field", by component or table name.
    std::vector<store::DataSet*> ExtraDataSets;
    // The date and time the run prints; the clock's when not set.
    std::optional<ReportTimestamp> PrintedAt;

    // One band of each of these kinds: Title, PageHeader, ColumnHeader, Detail, Summary,
    // PageFooter. Asking twice for one kind gives the same band.
    TQRBand& Band(BandKind kind, double height);
    TQRBand* FindBand(BandKind kind) const;
    // Groups nest in the order they are added, the first outermost.
    TQRGroup& AddGroup(std::string expression, double height);
    TQRSubDetail& AddSubDetail(store::DataSet& dataSet, double height);

    const std::vector<std::unique_ptr<TQRGroup>>& Groups() const { return groups_; }
    const std::vector<std::unique_ptr<TQRSubDetail>>& SubDetails() const { return subDetails_; }

    // Lays out the pages into `document`, from an empty one: pages are added as they are
    // finished. Stops at the next band once the document's cancel is asked for. Nothing is
    // produced for a dataset without rows unless PrintIfEmpty.
    void Prepare(ReportDocument& document);

    // During a run.
    ReportTimestamp Timestamp() const { return timestamp_; }
    int PageNumber() const { return pageNumber_; }

    // The sheet in points, after paper size and orientation.
    double PageWidthPoints() const;
    double PageHeightPoints() const;

private:
    friend class ReportRun;

    std::vector<std::unique_ptr<TQRBand>> bands_; // the single bands
    std::vector<std::unique_ptr<TQRGroup>> groups_;
    std::vector<std::unique_ptr<TQRSubDetail>> subDetails_;
    ReportTimestamp timestamp_;
    int pageNumber_ = 0;
};

} // namespace corvane::reports
