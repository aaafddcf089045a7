#include "reports/render/PdfWriter.h"

#include "core/Exception.h"
#include "reports/page/PageText.h"
#include "reports/render/Cp1252.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <filesystem>

namespace corvane::reports {

namespace {

// Ordered as the faces of the width tables: family, then bold, then italic.
constexpr std::array<std::string_view, 12> kBaseFonts{
    "Helvetica",   "Helvetica-Bold", "Helvetica-Oblique", "Helvetica-BoldOblique",
    "Times-Roman", "Times-Bold",     "Times-Italic",      "Times-BoldItalic",
    "Courier",     "Courier-Bold",   "Courier-Oblique",   "Courier-BoldOblique",
};

constexpr std::size_t kRememberedImages = 4;

int FontIndex(const Font& font) {
    return static_cast<int>(font.family) * 4 + (font.bold ? 1 : 0) + (font.italic ? 2 : 0);
}

// Numbers in the file never depend on the locale and carry no more digits than a viewer can
// use: a thousandth of a point.
std::string Number(double value) {
    std::array<char, 64> buffer{};
    auto [end, error] = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::fixed, 3);
    if (error != std::errc()) return "0";
    std::string text(buffer.data(), end);
    while (text.back() == '0')
        text.pop_back();
    if (text.back() == '.') text.pop_back();
    if (text == "-0") text = "0";
    return text;
}

std::string ColorComponents(const Color& color) {
    return Number(color.r / 255.0) + ' ' + Number(color.g / 255.0) + ' ' + Number(color.b / 255.0);
}

std::string LiteralString(std::string_view bytes) {
    std::string literal = "(";
    for (char c : bytes) {
        if (c == '(' || c == ')' || c == '\\') literal.push_back('\\');
        literal.push_back(c);
    }
    literal.push_back(')');
    return literal;
}

// Plain ASCII stays readable in the file; anything else goes as UTF-16 with its byte order mark,
// the one form every viewer reads for document information.
std::string TextString(std::string_view utf8) {
    const bool ascii = std::all_of(utf8.begin(), utf8.end(), [](char c) {
        return static_cast<unsigned char>(c) >= 0x20 && static_cast<unsigned char>(c) < 0x7F;
    });
    if (ascii) return LiteralString(utf8);
    static constexpr char kHex[] = "0123456789ABCDEF";
    std::string hex = "<FEFF";
    auto unit = [&](unsigned value) {
        for (int shift = 12; shift >= 0; shift -= 4)
            hex.push_back(kHex[(value >> shift) & 0xF]);
    };
    std::size_t at = 0;
    while (at < utf8.size()) {
        const char32_t code = NextCodePoint(utf8, at);
        if (code < 0x10000) {
            unit(code);
        } else {
            unit(0xD800 + ((code - 0x10000) >> 10));
            unit(0xDC00 + ((code - 0x10000) & 0x3FF));
        }
    }
    hex.push_back('>');
    return hex;
}

std::string Deflate(const std::string& data) {
    uLongf size = compressBound(static_cast<uLong>(data.size()));
    std::string packed(size, '\0');
    if (compress2(reinterpret_cast<Bytef*>(packed.data()), &size,
                  reinterpret_cast<const Bytef*>(data.data()), static_cast<uLong>(data.size()),
                  Z_DEFAULT_COMPRESSION) != Z_OK)
        throw Exception("A report page could not be compressed for the PDF file.");
    packed.resize(size);
    return packed;
}

bool Drawable(const ImageOp& image) {
    return image.pixelWidth > 0 && image.pixelHeight > 0 &&
           image.rgb.size() == static_cast<std::size_t>(image.pixelWidth) * image.pixelHeight * 3 &&
           image.rect.width > 0 && image.rect.height > 0;
}

} // namespace

PdfWriter::PdfWriter(const std::string& path) : path_(path) {
    file_ = std::fopen(path.c_str(), "wb");
    if (!file_)
        throw Exception("Could not create the PDF file " + path + ": " + std::strerror(errno) +
                        ".");
    opened_ = true;
    // The second line's high bytes tell transfer programs that the file is binary.
    Write("%PDF-1.4\n%\xE2\xE3\xCF\xD3\n");
    NewObject(); // the catalog, written last
    pagesObject_ = NewObject();
    fontsObject_ = NewObject();
    std::string fonts = "<<";
    for (std::size_t i = 0; i < kBaseFonts.size(); ++i)
        fonts +=
            " /F" + std::to_string(i + 1) + ' ' + std::to_string(fontsObject_ + 1 + i) + " 0 R";
    fonts += " >>";
    BeginObject(fontsObject_);
    Write(fonts + "\nendobj\n");
    for (std::string_view name : kBaseFonts) {
        BeginObject(NewObject());
        Write("<< /Type /Font /Subtype /Type1 /BaseFont /" + std::string(name) +
              " /Encoding /WinAnsiEncoding >>\nendobj\n");
    }
}

PdfWriter::~PdfWriter() {
    if (!finished_) Discard();
}

int PdfWriter::NewObject() {
    offsets_.push_back(0);
    return static_cast<int>(offsets_.size());
}

void PdfWriter::BeginObject(int object) {
    offsets_[static_cast<std::size_t>(object - 1)] = written_;
    Write(std::to_string(object) + " 0 obj\n");
}

void PdfWriter::Write(std::string_view bytes) {
    if (!file_) throw Exception("The PDF file " + path_ + " is already closed.");
    if (std::fwrite(bytes.data(), 1, bytes.size(), file_) != bytes.size()) Fail();
    written_ += bytes.size();
}

void PdfWriter::WriteStream(int object, std::string dictionary, const std::string& data) {
    const std::string packed = Deflate(data);
    BeginObject(object);
    Write("<< " + dictionary + " /Filter /FlateDecode /Length " + std::to_string(packed.size()) +
          " >>\nstream\n");
    Write(packed);
    Write("\nendstream\nendobj\n");
}

int PdfWriter::ImageObject(const ImageOp& image) {
    for (const StoredImage& stored : recentImages_)
        if (stored.width == image.pixelWidth && stored.height == image.pixelHeight &&
            stored.rgb == image.rgb)
            return stored.object;
    const int object = NewObject();
    WriteStream(object,
                "/Type /XObject /Subtype /Image /Width " + std::to_string(image.pixelWidth) +
                    " /Height " + std::to_string(image.pixelHeight) +
                    " /ColorSpace /DeviceRGB /BitsPerComponent 8",
                std::string(image.rgb.begin(), image.rgb.end()));
    recentImages_.push_front({image.pixelWidth, image.pixelHeight, image.rgb, object});
    if (recentImages_.size() > kRememberedImages) recentImages_.pop_back();
    return object;
}

void PdfWriter::AddPage(const Page& page, int pageCount) {
    // The page's top-left origin becomes the file's bottom-left one.
    auto y = [&](double top) { return Number(page.height - top); };
    std::string content;
    std::string images;
    for (const DrawOp& op : page.ops) {
        if (const auto* text = std::get_if<TextOp>(&op)) {
            const TextOp resolved = ResolvePageTotal(*text, pageCount);
            const std::string bytes = Utf8ToCp1252(resolved.text);
            if (bytes.empty()) continue;
            content += "BT /F" + std::to_string(FontIndex(resolved.font) + 1) + ' ' +
                       Number(resolved.font.size) + " Tf " + ColorComponents(resolved.color) +
                       " rg 1 0 0 1 " + Number(resolved.x) + ' ' + y(resolved.baseline) + " Tm " +
                       LiteralString(bytes) + " Tj ET\n";
        } else if (const auto* line = std::get_if<LineOp>(&op)) {
            if (line->width <= 0) continue;
            content += Number(line->width) + " w " + ColorComponents(line->color) + " RG " +
                       Number(line->x1) + ' ' + y(line->y1) + " m " + Number(line->x2) + ' ' +
                       y(line->y2) + " l S\n";
        } else if (const auto* rect = std::get_if<RectOp>(&op)) {
            const bool stroke = rect->lineWidth > 0;
            if (!stroke && !rect->filled) continue;
            if (rect->filled) content += ColorComponents(rect->fill) + " rg ";
            if (stroke)
                content += Number(rect->lineWidth) + " w " + ColorComponents(rect->color) + " RG ";
            content += Number(rect->rect.left) + ' ' + y(rect->rect.Bottom()) + ' ' +
                       Number(rect->rect.width) + ' ' + Number(rect->rect.height) + " re " +
                       (stroke && rect->filled ? "B"
                        : stroke               ? "S"
                                               : "f") +
                       "\n";
        } else if (const auto* image = std::get_if<ImageOp>(&op)) {
            if (!Drawable(*image)) continue;
            const std::string name = "/Im" + std::to_string(ImageObject(*image));
            if (images.find(name + ' ') == std::string::npos)
                images += ' ' + name + ' ' + name.substr(3) + " 0 R";
            content += "q " + Number(image->rect.width) + " 0 0 " + Number(image->rect.height) +
                       ' ' + Number(image->rect.left) + ' ' + y(image->rect.Bottom()) + " cm " +
                       name + " Do Q\n";
        }
    }
    const int contentObject = NewObject();
    WriteStream(contentObject, "", content);
    const int pageObject = NewObject();
    BeginObject(pageObject);
    std::string resources = "/Font " + std::to_string(fontsObject_) + " 0 R";
    if (!images.empty()) resources += " /XObject <<" + images + " >>";
    Write("<< /Type /Page /Parent " + std::to_string(pagesObject_) + " 0 R /MediaBox [0 0 " +
          Number(page.width) + ' ' + Number(page.height) + "] /Resources << " + resources +
          " >> /Contents " + std::to_string(contentObject) + " 0 R >>\nendobj\n");
    pageObjects_.push_back(pageObject);
}

void PdfWriter::Finish() {
    // Viewers refuse a file without pages; a report that produced none opens as a blank one.
    if (pageObjects_.empty()) AddPage(Page{}, 1);
    std::string kids;
    kids.reserve(pageObjects_.size() * 10);
    for (int page : pageObjects_)
        kids += std::to_string(page) + " 0 R ";
    BeginObject(pagesObject_);
    Write("<< /Type /Pages /Kids [" + kids + "] /Count " + std::to_string(pageObjects_.size()) +
          " >>\nendobj\n");
    const int infoObject = NewObject();
    BeginObject(infoObject);
    Write("<< /Title " + TextString(title_) + " /Producer (Corvane) >>\nendobj\n");
    BeginObject(1);
    Write("<< /Type /Catalog /Pages " + std::to_string(pagesObject_) + " 0 R >>\nendobj\n");

    const std::uint64_t xref = written_;
    std::string table =
        "xref\n0 " + std::to_string(offsets_.size() + 1) + "\n0000000000 65535 f \n";
    char entry[32];
    for (std::uint64_t offset : offsets_) {
        std::snprintf(entry, sizeof entry, "%010llu 00000 n \n",
                      static_cast<unsigned long long>(offset));
        table += entry;
    }
    Write(table);
    Write("trailer\n<< /Size " + std::to_string(offsets_.size() + 1) + " /Root 1 0 R /Info " +
          std::to_string(infoObject) + " 0 R >>\nstartxref\n" + std::to_string(xref) + "\n%%EOF\n");

    // A full disk often shows only when the last buffer goes out.
    if (std::fflush(file_) != 0) Fail();
    const int closed = std::fclose(file_);
    file_ = nullptr;
    if (closed != 0) Fail();
    finished_ = true;
}

void PdfWriter::Fail() {
    const std::string reason = std::strerror(errno);
    Discard();
    throw Exception("Could not write the PDF file " + path_ + ": " + reason + ".");
}

void PdfWriter::Discard() {
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
