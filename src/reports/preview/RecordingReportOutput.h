#pragma once

#include "reports/preview/ReportOutput.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace corvane::reports {

// Printing without a printer. Each call is recorded as a line ("PrintDialog pages 1-3 copies 1
// range", "PrintPages 1-3 copies 1 printer -1", "SaveFileName Export to PDF|Sales.pdf"), every
// printed page number is kept in print order, and the dialogs are answered from queues the test
// or scenario fills beforehand. A dialog with no answer queued is a ScriptError, so that nobody
// passes over a dialog they did not expect.
class RecordingReportOutput : public ReportOutput {
public:
    // The print dialog's next answer: OK with this choice. A range outside the report's pages is
    // kept as given, as a person could type it.
    struct PrintChoice {
        int fromPage = 0; // 0: the dialog's own value
        int toPage = 0;
        int copies = 1;
        int printerIndex = -1;
    };
    void AnswerPrint(PrintChoice choice) { printAnswers_.push_back(choice); }
    void CancelPrint() { printAnswers_.push_back(std::nullopt); }
    // The save dialog's next answer: a path, or nothing for a cancel.
    void AnswerSaveFile(std::optional<std::string> path) {
        saveAnswers_.push_back(std::move(path));
    }

    const std::vector<std::string>& Calls() const { return calls_; }
    // The requests the print dialog was opened with, before the person changed them.
    const std::vector<PrintRequest>& Requests() const { return requests_; }
    const std::vector<int>& PrintedPages() const { return printedPages_; }
    std::size_t PendingAnswers() const { return printAnswers_.size() + saveAnswers_.size(); }
    std::size_t PendingSaveAnswers() const { return saveAnswers_.size(); }
    void Clear();

    bool PrintDialog(PrintRequest& request) override;
    void PrintPages(const ReportDocument& document, const PrintJob& job) override;
    std::optional<std::string> SaveFileName(const std::string& title,
                                            const std::string& defaultName,
                                            const std::string& filter = {}) override;

private:
    std::deque<std::optional<PrintChoice>> printAnswers_;
    std::deque<std::optional<std::string>> saveAnswers_;
    std::vector<std::string> calls_;
    std::vector<PrintRequest> requests_;
    std::vector<int> printedPages_;
};

} // namespace corvane::reports
