#pragma once

#include "reports/page/Page.h"
#include "reports/page/ReportDocument.h"

#include <cstdint>
#include <cstdio>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::reports {

// Writes report pages to a PDF file as they come, in the standard fonts every viewer has, so
// nothing is embedded. Each page is compressed and written when it is added and then forgotten:
// only the offsets of the objects stay in memory, which lets a report of thousands of pages go to
// a file in bounded memory. A failure throws core::Exception naming the file and removes what was
// written; a writer destroyed before Finish removes its file too.
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

    // Writes the page tree, the document information and the cross-reference table, and closes
    // the file.
    void Finish();

private:
    // A page's picture is often the same logo on every page: the last few are remembered by
    // their pixels so each is stored once.
    struct StoredImage {
        int width = 0;
        int height = 0;
        std::vector<std::uint8_t> rgb;
        int object = 0;
    };

    int NewObject();
    void BeginObject(int object);
    void Write(std::string_view bytes);
    void WriteStream(int object, std::string dictionary, const std::string& data);
    int ImageObject(const ImageOp& image);
    [[noreturn]] void Fail();
    void Discard();

    std::string path_;
    std::string title_;
    std::FILE* file_ = nullptr;
    std::uint64_t written_ = 0;
    std::vector<std::uint64_t> offsets_; // by object number - 1
    std::vector<int> pageObjects_;
    std::deque<StoredImage> recentImages_;
    int pagesObject_ = 0;
    int fontsObject_ = 0;
    bool opened_ = false;
    bool finished_ = false;
};

// The whole document in one file, with the document's title.
void WritePdf(const ReportDocument& document, const std::string& path);

} // namespace corvane::reports
