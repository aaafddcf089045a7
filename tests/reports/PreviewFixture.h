#pragma once

#include "reports/page/Page.h"
#include "reports/page/PageText.h"
#include "reports/page/ReportDocument.h"
#include "reports/preview/RecordingReportOutput.h"
#include "reports/preview/ReportOutput.h"
#include "reports/preview/TfrmPreview.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>

namespace corvane::testing {

// A page made by hand: its number in a line of text and a footer "Page n of <total>", the total
// left for the renderer as the engine leaves it.
inline reports::Page NumberedPage(int number) {
    reports::Page page;
    reports::TextOp body;
    body.box = {72, 90, 300, 14};
    body.x = 72;
    body.baseline = 100;
    body.text = "Body of page " + std::to_string(number);
    page.ops.push_back(body);
    reports::TextOp footer = body;
    footer.box.top = 740;
    footer.baseline = 750;
    footer.text = "Page " + std::to_string(number) + " of " + std::string(reports::kPageTotalToken);
    page.ops.push_back(footer);
    return page;
}

// A finished report of pageCount pages.
inline std::shared_ptr<reports::ReportDocument> FinishedReport(int pageCount,
                                                               std::string title = "Vendors") {
    auto document = std::make_shared<reports::ReportDocument>();
    document->title = std::move(title);
    document->StartProduction();
    for (int n = 1; n <= pageCount; ++n)
        document->AddPage(NumberedPage(n));
    document->FinishProduction();
    return document;
}

// The headless program with a recorder installed as its printer.
class PreviewTest : public UiTest {
protected:
    void SetUp() override { reports::ReportOutput::Install(&printer); }
    void TearDown() override { reports::ReportOutput::Install(nullptr); }

    reports::TfrmPreview& Preview(std::shared_ptr<reports::ReportDocument> document,
                                  bool landscape = false) {
        reports::TfrmPreview* preview = nullptr;
        app.Run([&] { preview = &reports::ShowPreview(app, std::move(document), landscape); });
        if (!preview) throw std::runtime_error("No preview: " + dialogs.LastText());
        return *preview;
    }
    void Click(reports::TfrmPreview& preview, const char* name) {
        ui::FormDriver(preview).Click(name);
    }
    static std::string PageLabel(const reports::TfrmPreview& preview) {
        return preview.panelPageNumber.Caption;
    }

    reports::RecordingReportOutput printer;
};

} // namespace corvane::testing
