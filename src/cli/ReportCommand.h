#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace corvane::reports {
class ReportRegistry;
}

namespace corvane::cli {

// "report COMPANY NAME [--OPTION VALUE]... (--pdf FILE | --text FILE)": opens the company in the
// folder COMPANY, makes the report registered as NAME with the options (keys without their
// dashes) and writes all its pages to FILE, then prints "<n> page(s) written to FILE".
// "report --list", "report" alone or "report COMPANY" alone print the names and descriptions.
// An unknown NAME prints the names there are and returns 1. A malformed line, or options the
// report refuses (its factory raises std::invalid_argument or an Exception that is not the
// store's), print the usage and return 2.
// args starts after the command.
int ReportCommand(const std::vector<std::string>& args, const reports::ReportRegistry& registry,
                  std::ostream& out, std::ostream& err);

// ReportCommand over the reports of RegisterProgramReports.
int RunReport(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace corvane::cli
