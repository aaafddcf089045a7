#pragma once

#include <optional>
#include <string>

namespace corvane::reports {

class ReportDocument;

// What the print dialog starts from and, after OK, what the person chose. Pages count from 1.
struct PrintRequest {
    int printerIndex = -1; // in the list of the system's printers; -1 for the default one
    int minPage = 1;
    int maxPage = 1;
    int fromPage = 1;
    int toPage = 1;
    int copies = 1;
    // A range may be chosen; without it the whole report prints.
    bool rangeAllowed = false;
};

// One pass of pages to the printer, drawn from pages already produced.
struct PrintJob {
    int printerIndex = -1;
    int firstPage = 1;
    int lastPage = 1;
    int copies = 1;
    std::string title; // the name of the job in the printer's queue
};

// Where printed and exported reports go: the desktop's print dialog, printer and save dialog, or a
// recorder for the headless program and the tests. The program installs one at start.
class ReportOutput {
public:
    virtual ~ReportOutput() = default;

    // Shows the print dialog filled from request; on OK writes the choice back and returns true.
    virtual bool PrintDialog(PrintRequest& request) = 0;
    // Prints the job's pages of document, in order.
    virtual void PrintPages(const ReportDocument& document, const PrintJob& job) = 0;
    // Asks for the name of a file to write; nothing when the person cancelled. The filter names
    // the kinds of file offered ("Excel files (*.xlsx)|*.xlsx|Text files (*.txt)|*.txt"); with
    // none, the kind of the default name.
    virtual std::optional<std::string> SaveFileName(const std::string& title,
                                                    const std::string& defaultName,
                                                    const std::string& filter = {}) = 0;

    // The output every preview uses from now on; null puts back the recorder the program starts
    // with, which answers no dialog until told how to.
    static void Install(ReportOutput* output);
    static ReportOutput& Current();
};

} // namespace corvane::reports
