#include "reports/render/PdfWriter.h"

#include "core/Exception.h"
#include "reports/page/FontFaces.h"
#include "reports/page/PageText.h"
#include "reports/page/Utf8.h"

#include <cairo-ft.h>
#include <cairo-pdf.h>
#include <cairo.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <mutex>

namespace corvane::reports {

struct PdfSink {
    static cairo_status_t Write(void* closure, const unsigned char* data, unsigned length) {
        return static_cast<PdfWriter*>(closure)->WriteOut(data, length) ? CAIRO_STATUS_SUCCESS
                                                                        : CAIRO_STATUS_WRITE_ERROR;
    }
};

struct PdfWriter::TextBatch {
    Font font;
    Color color;
    std::string text;
    std::vector<cairo_glyph_t> glyphs;
    std::vector<cairo_text_cluster_t> clusters;
};

namespace {

constexpr std::size_t kRememberedImages = 4;

// cairo's faces over the report faces, made once like them and kept as long.
cairo_font_face_t* CairoFace(const Font& font) {
    static cairo_font_face_t* faces[12] = {};
    static std::once_flag made;
    std::call_once(made, [] {
        for (int i = 0; i < 12; ++i) {
            const Font each{static_cast<FontFamily>(i / 4), 10, (i & 1) != 0, (i & 2) != 0};
            // Unhinted outlines at the unrounded widths the engine measured with.
            faces[i] = cairo_ft_font_face_create_for_ft_face(FaceOf(each).FreeTypeFace(),
                                                             FT_LOAD_NO_HINTING);
        }
    });
    return faces[static_cast<int>(font.family) * 4 + (font.bold ? 1 : 0) + (font.italic ? 2 : 0)];
}

void SetColor(cairo_t* cr, const Color& color) {
    cairo_set_source_rgb(cr, color.r / 255.0, color.g / 255.0, color.b / 255.0);
}

bool Drawable(const ImageOp& image) {
    return image.pixelWidth > 0 && image.pixelHeight > 0 &&
           image.rgb.size() == static_cast<std::size_t>(image.pixelWidth) * image.pixelHeight * 3 &&
           image.rect.width > 0 && image.rect.height > 0;
}

// A viewer shows the title as it is; cairo takes only well-formed UTF-8.
std::string WellFormed(std::string_view text) {
    std::string out;
    std::size_t at = 0;
    while (at < text.size())
        AppendUtf8(out, NextCodePoint(text, at));
    return out;
}

} // namespace

PdfWriter::PdfWriter(const std::string& path) : path_(path) {
    file_ = std::fopen(path.c_str(), "wb");
    if (!file_)
        throw Exception("Could not create the PDF file " + path + ": " + std::strerror(errno) +
                        ".");
    opened_ = true;
    surface_ = cairo_pdf_surface_create_for_stream(&PdfSink::Write, this, 612, 792);
    cr_ = cairo_create(surface_);
    cairo_pdf_surface_set_metadata(surface_, CAIRO_PDF_METADATA_CREATOR, "Corvane");
    cairo_font_options_t* options = cairo_font_options_create();
    cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
    cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
    cairo_set_font_options(cr_, options);
    cairo_font_options_destroy(options);
    CheckStatus();
}

PdfWriter::~PdfWriter() {
    if (!finished_) Discard();
}

bool PdfWriter::WriteOut(const unsigned char* data, unsigned length) {
    if (writeError_ != 0 || !file_) return false;
    if (std::fwrite(data, 1, length, file_) != length) {
        writeError_ = errno != 0 ? errno : EIO;
        return false;
    }
    return true;
}

void PdfWriter::AddPage(const Page& page, int pageCount) {
    if (finished_ || !cr_) throw Exception("The PDF file " + path_ + " is already closed.");
    cairo_pdf_surface_set_size(surface_, page.width, page.height);
    for (const DrawOp& op : page.ops) {
        if (const auto* text = std::get_if<TextOp>(&op)) {
            AddText(ResolvePageTotal(*text, pageCount));
            continue;
        }
        // Shapes and pictures go over the texts before them and under those after.
        DrawTexts();
        if (const auto* line = std::get_if<LineOp>(&op))
            DrawLine(*line);
        else if (const auto* rect = std::get_if<RectOp>(&op))
            DrawRect(*rect);
        else if (const auto* image = std::get_if<ImageOp>(&op))
            DrawImage(*image);
    }
    DrawTexts();
    cairo_show_page(cr_);
    ++pages_;
    CheckStatus();
}

void PdfWriter::AddText(const TextOp& op) {
    if (op.text.empty()) return;
    TextBatch* batch = nullptr;
    for (TextBatch& each : texts_)
        if (each.font == op.font && each.color == op.color) batch = &each;
    if (!batch) batch = &texts_.emplace_back(TextBatch{op.font, op.color, {}, {}, {}});
    const GlyphRun run = LayOutGlyphs(op.font, op.text);
    for (std::size_t i = 0; i < run.glyphs.size(); ++i) {
        batch->glyphs.push_back({run.glyphs[i], op.x + run.x[i], op.baseline});
        // One character, one glyph: a copy of the text gives back each character drawn.
        batch->clusters.push_back({run.bytes[i], 1});
    }
    batch->text += run.text;
}

// The texts of one face and colour go to cairo in one call: it handles a call in time that grows
// with the glyphs, but with a large share for the call itself.
void PdfWriter::DrawTexts() {
    for (TextBatch& batch : texts_) {
        if (batch.glyphs.empty()) continue;
        cairo_set_font_face(cr_, CairoFace(batch.font));
        cairo_set_font_size(cr_, batch.font.size);
        SetColor(cr_, batch.color);
        cairo_show_text_glyphs(cr_, batch.text.data(), static_cast<int>(batch.text.size()),
                               batch.glyphs.data(), static_cast<int>(batch.glyphs.size()),
                               batch.clusters.data(), static_cast<int>(batch.clusters.size()),
                               cairo_text_cluster_flags_t{});
    }
    texts_.clear();
}

void PdfWriter::DrawLine(const LineOp& op) {
    if (op.width <= 0) return;
    cairo_set_line_width(cr_, op.width);
    cairo_set_line_cap(cr_, CAIRO_LINE_CAP_BUTT);
    SetColor(cr_, op.color);
    cairo_move_to(cr_, op.x1, op.y1);
    cairo_line_to(cr_, op.x2, op.y2);
    cairo_stroke(cr_);
}

void PdfWriter::DrawRect(const RectOp& op) {
    const Rect& r = op.rect;
    if (op.filled) {
        SetColor(cr_, op.fill);
        cairo_rectangle(cr_, r.left, r.top, r.width, r.height);
        cairo_fill(cr_);
    }
    if (op.lineWidth > 0) {
        SetColor(cr_, op.color);
        cairo_set_line_width(cr_, op.lineWidth);
        cairo_rectangle(cr_, r.left, r.top, r.width, r.height);
        cairo_stroke(cr_);
    }
}

cairo_surface_t* PdfWriter::ImageSurface(const ImageOp& image) {
    for (const StoredImage& stored : recentImages_)
        if (stored.width == image.pixelWidth && stored.height == image.pixelHeight &&
            stored.rgb == image.rgb)
            return stored.surface;
    cairo_surface_t* surface =
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, image.pixelWidth, image.pixelHeight);
    cairo_surface_flush(surface);
    unsigned char* rows = cairo_image_surface_get_data(surface);
    const int stride = cairo_image_surface_get_stride(surface);
    for (int y = 0; y < image.pixelHeight; ++y) {
        auto* row =
            reinterpret_cast<std::uint32_t*>(rows + static_cast<std::ptrdiff_t>(y) * stride);
        for (int x = 0; x < image.pixelWidth; ++x) {
            const std::size_t at = (static_cast<std::size_t>(y) * image.pixelWidth + x) * 3;
            row[x] = (std::uint32_t{image.rgb[at]} << 16) |
                     (std::uint32_t{image.rgb[at + 1]} << 8) | image.rgb[at + 2];
        }
    }
    cairo_surface_mark_dirty(surface);
    recentImages_.push_front({image.pixelWidth, image.pixelHeight, image.rgb, surface});
    if (recentImages_.size() > kRememberedImages) {
        cairo_surface_destroy(recentImages_.back().surface);
        recentImages_.pop_back();
    }
    return surface;
}

void PdfWriter::DrawImage(const ImageOp& op) {
    if (!Drawable(op)) return;
    cairo_surface_t* surface = ImageSurface(op);
    cairo_save(cr_);
    cairo_translate(cr_, op.rect.left, op.rect.top);
    cairo_scale(cr_, op.rect.width / op.pixelWidth, op.rect.height / op.pixelHeight);
    cairo_set_source_surface(cr_, surface, 0, 0);
    // The pixels as they are: a small logo blown up stays sharp rather than blurred.
    cairo_pattern_set_filter(cairo_get_source(cr_), CAIRO_FILTER_NEAREST);
    cairo_rectangle(cr_, 0, 0, op.pixelWidth, op.pixelHeight);
    cairo_fill(cr_);
    cairo_restore(cr_);
}

void PdfWriter::CheckStatus() {
    if (writeError_ != 0) Fail(std::strerror(writeError_));
    const cairo_status_t status = cr_ ? cairo_status(cr_) : cairo_surface_status(surface_);
    if (status != CAIRO_STATUS_SUCCESS) Fail(cairo_status_to_string(status));
}

void PdfWriter::Finish() {
    if (finished_ || !cr_) throw Exception("The PDF file " + path_ + " is already closed.");
    // Viewers refuse a file without pages; a report that produced none opens as a blank one.
    if (pages_ == 0) AddPage(Page{}, 1);
    cairo_pdf_surface_set_metadata(surface_, CAIRO_PDF_METADATA_TITLE, WellFormed(title_).c_str());
    cairo_destroy(cr_);
    cr_ = nullptr;
    // The fonts' subsets, the page tree and the cross-reference table go out now.
    cairo_surface_finish(surface_);
    CheckStatus();
    ReleaseCairo();
    // A full disk often shows only when the last buffer goes out.
    if (std::fflush(file_) != 0) Fail(std::strerror(errno));
    const int closed = std::fclose(file_);
    file_ = nullptr;
    if (closed != 0) Fail(std::strerror(errno));
    finished_ = true;
}

void PdfWriter::ReleaseCairo() {
    if (cr_) cairo_destroy(cr_);
    cr_ = nullptr;
    for (StoredImage& stored : recentImages_)
        cairo_surface_destroy(stored.surface);
    recentImages_.clear();
    if (surface_) cairo_surface_destroy(surface_);
    surface_ = nullptr;
}

void PdfWriter::Fail(const std::string& reason) {
    Discard();
    throw Exception("Could not write the PDF file " + path_ + ": " + reason + ".");
}

void PdfWriter::Discard() {
    // What cairo still has to say goes nowhere.
    if (writeError_ == 0) writeError_ = ECANCELED;
    ReleaseCairo();
    if (file_) std::fclose(file_);
    file_ = nullptr;
    // Only a file of our own making goes; a device named as the target stays where it is.
    std::error_code ignored;
    if (opened_ && std::filesystem::is_regular_file(path_, ignored))
        std::filesystem::remove(path_, ignored);
    opened_ = false;
}

void WritePdf(const ReportDocument& document, const std::string& path) {
    PdfWriter writer(path);
    writer.SetTitle(document.title);
    const int count = document.PageCount();
    for (int number = 1; number <= count; ++number)
        writer.AddPage(document.PageAt(number), count);
    writer.Finish();
}

} // namespace corvane::reports
