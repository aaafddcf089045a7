#pragma once

#include "reports/engine/TQuickRep.h"

#include <functional>
#include <string>

namespace corvane::reports {

class ReportDocument;

// A report: a form never shown that holds its banded report, the datasets that feed it and the
// handlers that work out what the bands show. Each report of the program derives from it, builds
// its bands in its constructor and opens its datasets in Open.
class TrptBase {
public:
    TrptBase() = default;
    virtual ~TrptBase() = default;
    TrptBase(const TrptBase&) = delete;
    TrptBase& operator=(const TrptBase&) = delete;

    TQuickRep QuickReport;

    // Opens the datasets, in the order and with the filter given before (a list prints what it
    // shows); the engine reads them from their first row.
    virtual void Open() {}

    // One run of the report: opens the datasets, titles the document, calls opened (where a
    // preview shows itself) and lays out every page. All of it reads one moment of the company,
    // so a commit by another process between page 1 and the rest never mixes two states into one
    // report; that process's commit waits until the last page is made.
    void Produce(ReportDocument& document, const std::function<void()>& opened = {});

    // The paper rule of every report: on a printer whose paper is A4, A4 whatever the design.
    void ApplyPaper(bool paperIsA4);
};

} // namespace corvane::reports
