#include "reports/export/SheetWriter.h"

#include "core/Exception.h"
#include "reports/page/Utf8.h"

#include <xlsxwriter.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <cstring>
#include <filesystem>

namespace corvane::reports {

namespace {

// Sheet names are at most 31 characters and hold none of []:*?/\ .
std::string SheetName(const std::string& wanted) {
    std::string name;
    std::size_t at = 0;
    int characters = 0;
    while (at < wanted.size() && characters < 31) {
        const char32_t code = NextCodePoint(wanted, at);
        if (code < 0x20 || std::u32string_view(U"[]:*?/\\").find(code) != std::u32string::npos)
            continue;
        AppendUtf8(name, code);
        ++characters;
    }
    while (!name.empty() && (name.front() == '\'' || name.front() == ' '))
        name.erase(name.begin());
    while (!name.empty() && (name.back() == '\'' || name.back() == ' '))
        name.pop_back();
    return name.empty() ? "Sheet1" : name;
}

// Text as the file takes it: well-formed UTF-8 without control characters, which a spreadsheet
// refuses in a cell (tabs and line breaks excepted).
std::string CellText(const std::string& text) {
    std::string out;
    std::size_t at = 0;
    while (at < text.size()) {
        const char32_t code = NextCodePoint(text, at);
        if (code < 0x20 && code != '\t' && code != '\n') continue;
        AppendUtf8(out, code);
    }
    return out;
}

int Characters(const std::string& text) {
    int count = 0;
    for (char c : text)
        count += (static_cast<unsigned char>(c) & 0xC0) != 0x80;
    return count;
}

} // namespace

std::string FileExtension(const std::string& path) {
    std::string extension = std::filesystem::path(path).extension().string();
    if (!extension.empty()) extension.erase(0, 1);
    std::transform(extension.begin(), extension.end(), extension.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return extension;
}

SheetWriter::SheetWriter(const std::string& path, const std::string& sheetName) : path_(path) {
    // The library writes the file only at the end; a file that cannot be made is found now.
    std::FILE* probe = std::fopen(path.c_str(), "wb");
    if (!probe)
        throw Exception("Could not create the spreadsheet file " + path + ": " +
                        std::strerror(errno) + ".");
    std::fclose(probe);
    lxw_workbook_options options{};
    options.constant_memory = LXW_TRUE;
    workbook_ = workbook_new_opt(path.c_str(), &options);
    if (workbook_) sheet_ = workbook_add_worksheet(workbook_, SheetName(sheetName).c_str());
    if (!sheet_) {
        Discard();
        throw Exception("Could not create the spreadsheet file " + path + ".");
    }
    bold_ = workbook_add_format(workbook_);
    format_set_bold(bold_);
}

SheetWriter::~SheetWriter() {
    if (!finished_) Discard();
}

lxw_format* SheetWriter::Format(const std::string& numberFormat) {
    if (numberFormat.empty()) return nullptr;
    auto found = formats_.find(numberFormat);
    if (found != formats_.end()) return found->second;
    lxw_format* format = workbook_add_format(workbook_);
    format_set_num_format(format, numberFormat.c_str());
    formats_.emplace(numberFormat, format);
    return format;
}

void SheetWriter::Check(int error) {
    if (error == LXW_NO_ERROR) return;
    const std::string reason = lxw_strerror(static_cast<lxw_error>(error));
    Discard();
    throw Exception("Could not write the spreadsheet file " + path_ + ": " + reason + ".");
}

void SheetWriter::AddHeader(const std::vector<std::string>& headings) {
    for (std::size_t column = 0; column < headings.size(); ++column) {
        Check(worksheet_write_string(sheet_, static_cast<lxw_row_t>(row_),
                                     static_cast<lxw_col_t>(column),
                                     CellText(headings[column]).c_str(), bold_));
        if (widths_.size() <= column) widths_.resize(column + 1, 8);
        widths_[column] = std::max(widths_[column], Characters(headings[column]) + 2.0);
    }
    ++row_;
}

void SheetWriter::AddRow(const std::vector<SheetCell>& cells) {
    if (!workbook_) throw Exception("The spreadsheet file " + path_ + " is already closed.");
    for (std::size_t column = 0; column < cells.size(); ++column) {
        const SheetCell& cell = cells[column];
        const auto r = static_cast<lxw_row_t>(row_);
        const auto c = static_cast<lxw_col_t>(column);
        int width = 0;
        switch (cell.kind) {
        case SheetCell::Kind::Empty:
            continue;
        case SheetCell::Kind::Text: {
            const std::string text = CellText(cell.text);
            if (text.empty()) continue;
            Check(worksheet_write_string(sheet_, r, c, text.c_str(), nullptr));
            width = Characters(text);
            break;
        }
        case SheetCell::Kind::Number:
        case SheetCell::Kind::Date:
            Check(worksheet_write_number(sheet_, r, c, cell.number, Format(cell.format)));
            width = std::max(10, Characters(cell.format) - 2);
            break;
        }
        if (widths_.size() <= column) widths_.resize(column + 1, 8);
        widths_[column] = std::max(widths_[column], std::min(width + 1.0, 60.0));
    }
    ++row_;
}

void SheetWriter::Finish() {
    if (!workbook_) throw Exception("The spreadsheet file " + path_ + " is already closed.");
    // Columns as wide as what they hold, so that nothing shows as ### when the file opens.
    for (std::size_t column = 0; column < widths_.size(); ++column)
        worksheet_set_column(sheet_, static_cast<lxw_col_t>(column), static_cast<lxw_col_t>(column),
                             widths_[column], nullptr);
    if (row_ > 1) worksheet_freeze_panes(sheet_, 1, 0);
    lxw_workbook* workbook = workbook_;
    workbook_ = nullptr;
    const lxw_error error = workbook_close(workbook);
    if (error != LXW_NO_ERROR) {
        std::error_code ignored;
        std::filesystem::remove(path_, ignored);
        throw Exception("Could not write the spreadsheet file " + path_ + ": " +
                        lxw_strerror(error) + ".");
    }
    finished_ = true;
}

void SheetWriter::Discard() {
    if (workbook_) {
        // Closing is the library's only way to free a workbook; what it writes goes below.
        workbook_close(workbook_);
        workbook_ = nullptr;
    }
    std::error_code ignored;
    if (std::filesystem::is_regular_file(path_, ignored)) std::filesystem::remove(path_, ignored);
}

} // namespace corvane::reports
