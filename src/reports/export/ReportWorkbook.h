#pragma once

#include <string>

namespace corvane::reports {

class ReportDocument;

// The report as a workbook: its column headings as the header row, then one row for each line
// that its detail, group and summary bands printed, in page order, with one cell for each field
// the line printed. Amounts and numbers are numbers in the report's format, dates are dates;
// titles, page headers and page footers, which repeat on every page, are left out. The columns
// are those of the detail band; a text of another band goes into the column it stands under.
// Returns the number of rows below the header.
int WriteWorkbook(const ReportDocument& document, const std::string& path);

} // namespace corvane::reports
