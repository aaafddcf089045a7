#pragma once

#include "reports/page/Page.h"
#include "reports/page/ReportDocument.h"

#include <cstdint>
#include <cstdio>
#include <deque>
#include <string>
#include <vector>

struct _cairo;
struct _cairo_surface;

namespace corvane::reports {

// Writes report pages to a PDF file through cairo, as they come. Text is drawn in the report
// faces, whose glyphs the file embeds as subsets, at the places the engine measured with the
// same faces; any character the faces hold prints, and the text can be searched and copied.
// Each page goes to the file when it is added and is then forgotten, so a report of thousands of
// pages is written in bounded memory. A failure throws core::Exception naming the file and
// removes what was written; a writer destroyed before Finish removes its file too.
class PdfWriter {
public:
    explicit PdfWriter(const std::string& path);
    ~PdfWriter();
    PdfWriter(const PdfWriter&) = delete;
    PdfWriter& operator=(const PdfWriter&) = delete;

    // Shown by viewers as the document's title; set before Finish.
    void SetTitle(const std::string& title) { title_ = title; }

    // Draws `page`; texts holding the page total token show `pageCount`.
    void AddPage(const Page& page, int pageCount);

    // Writes what the pages share (the fonts, the document information) and closes the file.
    void Finish();

private:
    // A page's picture is often the same logo on every page: the last few are kept by their
    // pixels, and the file stores each once.
    struct StoredImage {
        int width = 0;
        int height = 0;
        std::vector<std::uint8_t> rgb;
        _cairo_surface* surface = nullptr;
    };

    friend struct PdfSink;
    bool WriteOut(const unsigned char* data, unsigned length);
    // Texts wait in batches of one font and colour until something else is drawn.
    void AddText(const TextOp& op);
    void DrawTexts();
    void DrawLine(const LineOp& op);
    void DrawRect(const RectOp& op);
    void DrawImage(const ImageOp& op);
    _cairo_surface* ImageSurface(const ImageOp& image);
    void CheckStatus();
    [[noreturn]] void Fail(const std::string& reason);
    void Discard();
    void ReleaseCairo();

    std::string path_;
    std::string title_;
    std::FILE* file_ = nullptr;
    int writeError_ = 0; // errno of the first write that failed
    _cairo_surface* surface_ = nullptr;
    _cairo* cr_ = nullptr;
    std::deque<StoredImage> recentImages_;
    struct TextBatch;
    std::vector<TextBatch> texts_;
    int pages_ = 0;
    bool opened_ = false;
    bool finished_ = false;
};

// The whole document in one file, with the document's title.
void WritePdf(const ReportDocument& document, const std::string& path);

} // namespace corvane::reports
