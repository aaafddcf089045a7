#pragma once

#include <map>
#include <string>
#include <vector>

struct lxw_workbook;
struct lxw_worksheet;
struct lxw_format;

namespace corvane::reports {

// One cell of a spreadsheet row: text, a number shown through a number format ("#,##0.00"), or a
// date (days since 30 December 1899, as spreadsheets count them) shown through a date format.
struct SheetCell {
    enum class Kind { Empty, Text, Number, Date };
    Kind kind = Kind::Empty;
    std::string text;
    double number = 0;
    std::string format; // spreadsheet number format; empty for the general one

    static SheetCell Text(std::string text) { return {Kind::Text, std::move(text), 0, {}}; }
    static SheetCell Number(double value, std::string format = {}) {
        return {Kind::Number, {}, value, std::move(format)};
    }
    static SheetCell Date(double serial, std::string format) {
        return {Kind::Date, {}, serial, std::move(format)};
    }
};

// A workbook of one sheet written row by row to an .xlsx file through libxlsxwriter. Each row is
// handed to the library's temporary file as soon as the next begins, so a sheet of a hundred
// thousand rows takes no more memory than one of ten. A failure throws core::Exception naming the
// file and leaves no file behind; a writer destroyed before Finish removes its file too.
class SheetWriter {
public:
    SheetWriter(const std::string& path, const std::string& sheetName);
    ~SheetWriter();
    SheetWriter(const SheetWriter&) = delete;
    SheetWriter& operator=(const SheetWriter&) = delete;

    // The column headings, bold, above the rows; the first row, when there is one.
    void AddHeader(const std::vector<std::string>& headings);
    void AddRow(const std::vector<SheetCell>& cells);
    int Rows() const { return row_; }
    // Writes the file and closes it.
    void Finish();

private:
    lxw_format* Format(const std::string& numberFormat);
    void Check(int error);
    void Discard();

    std::string path_;
    lxw_workbook* workbook_ = nullptr;
    lxw_worksheet* sheet_ = nullptr;
    lxw_format* bold_ = nullptr;
    std::map<std::string, lxw_format*> formats_;
    std::vector<double> widths_; // characters, by column
    int row_ = 0;
    bool finished_ = false;
};

// A file name's extension, lower case and without its dot ("xlsx"); empty when there is none.
std::string FileExtension(const std::string& path);

} // namespace corvane::reports
