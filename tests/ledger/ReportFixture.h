#pragma once

#include "InquiryFixture.h"
#include "core/FormatSettings.h"
#include "reports/page/PageText.h"
#include "reports/page/ReportDocument.h"
#include "reports/preview/TfrmPreview.h"
#include "reports/render/TextRenderer.h"
#include "reports/run/TrptBase.h"
#include "support/GoldenFile.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>

namespace corvane::testing {

// The inquiry company with a name for the title band, a printer to preview for, and the default
// date format, so that the pages a report makes are the same on every machine.
class ReportTest : public InquiryTest {
protected:
    void SetUp() override {
        InquiryTest::SetUp();
        saved_ = ProcessFormatSettings();
        ProcessFormatSettings() = FormatSettings{};
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", "Report Test Co"},
                              {"FiscalYear", 2017},
                              {"DefaultPeriodYYYY", 2017},
                              {"DefaultPeriodPP", 3}});
        desktop.Printer = "Office Laser";
    }
    void TearDown() override {
        ProcessFormatSettings() = saved_;
        InquiryTest::TearDown();
    }

    // The report laid out as the command line does it, at a fixed time, as text pages.
    static std::string Pages(reports::TrptBase& report, int* pageCount = nullptr) {
        report.QuickReport.PrintedAt =
            reports::ReportTimestamp{Date::FromYmd(2017, 6, 30), 9, 15, 0};
        reports::ReportDocument document;
        report.Produce(document);
        if (pageCount) *pageCount = document.PageCount();
        return reports::TextRenderer(reports::TextRenderer::PageBreak::PageMarker).Render(document);
    }

    // The newest preview a Print command opened, or null.
    reports::TfrmPreview* LastPreview() const {
        reports::TfrmPreview* found = nullptr;
        for (ui::Form* form : app.Forms())
            if (auto* preview = dynamic_cast<reports::TfrmPreview*>(form)) found = preview;
        return found;
    }
    // What that preview shows, as text pages; empty without one.
    std::string PreviewText() const {
        reports::TfrmPreview* preview = LastPreview();
        if (!preview) return {};
        return reports::TextRenderer(reports::TextRenderer::PageBreak::PageMarker)
            .Render(preview->Document());
    }

    // The ledger's stored pages, in tests/ledger/golden.
    static void CompareWithGolden(const std::string& name, const std::string& actual) {
        corvane::testing::CompareWithGolden("ledger", name, actual);
    }

    // How many lines of the text hold the word.
    static int LinesWith(const std::string& text, const std::string& word) {
        int count = 0;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            if (line.find(word) != std::string::npos) ++count;
        return count;
    }

    FormatSettings saved_;
};

} // namespace corvane::testing
