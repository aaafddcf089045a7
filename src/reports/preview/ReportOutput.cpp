#include "reports/preview/ReportOutput.h"

#include "reports/preview/RecordingReportOutput.h"

namespace corvane::reports {

namespace {

ReportOutput* installed = nullptr;

ReportOutput& FallbackOutput() {
    static RecordingReportOutput recorder;
    return recorder;
}

} // namespace

void ReportOutput::Install(ReportOutput* output) {
    installed = output;
}

ReportOutput& ReportOutput::Current() {
    return installed ? *installed : FallbackOutput();
}

} // namespace corvane::reports
