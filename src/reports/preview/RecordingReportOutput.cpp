#include "reports/preview/RecordingReportOutput.h"

#include "reports/page/ReportDocument.h"
#include "ui/ScriptError.h"

namespace corvane::reports {

void RecordingReportOutput::Clear() {
    printAnswers_.clear();
    saveAnswers_.clear();
    calls_.clear();
    requests_.clear();
    printedPages_.clear();
}

bool RecordingReportOutput::PrintDialog(PrintRequest& request) {
    calls_.push_back("PrintDialog pages " + std::to_string(request.fromPage) + "-" +
                     std::to_string(request.toPage) + " copies " + std::to_string(request.copies) +
                     (request.rangeAllowed ? " range" : ""));
    requests_.push_back(request);
    if (printAnswers_.empty())
        throw ui::ScriptError("The print dialog opened with no answer given");
    std::optional<PrintChoice> answer = printAnswers_.front();
    printAnswers_.pop_front();
    if (!answer) return false;
    if (answer->fromPage > 0) request.fromPage = answer->fromPage;
    if (answer->toPage > 0) request.toPage = answer->toPage;
    request.copies = answer->copies;
    request.printerIndex = answer->printerIndex;
    return true;
}

void RecordingReportOutput::PrintPages(const ReportDocument& document, const PrintJob& job) {
    calls_.push_back("PrintPages " + std::to_string(job.firstPage) + "-" +
                     std::to_string(job.lastPage) + " copies " + std::to_string(job.copies) +
                     " printer " + std::to_string(job.printerIndex));
    // Reaching for each page proves it is there, as a real printer would draw it.
    for (int page = job.firstPage; page <= job.lastPage; ++page) {
        document.PageAt(page);
        printedPages_.push_back(page);
    }
}

std::optional<std::string> RecordingReportOutput::SaveFileName(const std::string& title,
                                                               const std::string& defaultName,
                                                               const std::string& filter) {
    calls_.push_back("SaveFileName " + title + "|" + defaultName +
                     (filter.empty() ? "" : "|" + filter));
    if (saveAnswers_.empty()) throw ui::ScriptError("The save dialog opened with no answer given");
    std::optional<std::string> answer = saveAnswers_.front();
    saveAnswers_.pop_front();
    return answer;
}

} // namespace corvane::reports
