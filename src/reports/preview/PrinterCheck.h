#pragma once

namespace corvane::ui {
class Application;
}

namespace corvane::reports {

// What every Print command says when there is no printer to preview for.
inline constexpr const char* kNoPrinterMessage =
    "You do not have a default printer defined.\n\nTo preview or print reports a printer must be "
    "defined, though not necessarily attached.";

// True when reports can be laid out for a printer: the system has a default printer, or the person
// said once that one is installed (PrinterInstalled in the General section of the settings file),
// or says so now, which is then remembered.
bool PrinterCheck(ui::Application& app);

// Raises kNoPrinterMessage when PrinterCheck says no.
void RequirePrinter(ui::Application& app);

} // namespace corvane::reports
