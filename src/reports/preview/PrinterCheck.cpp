#include "reports/preview/PrinterCheck.h"

#include "core/Exception.h"
#include "core/IniFile.h"
#include "shell/companies/CompanyShell.h"
#include "ui/Application.h"
#include "ui/Form.h"

namespace corvane::reports {

namespace {

constexpr const char* General = "General";
constexpr const char* PrinterInstalled = "PrinterInstalled";

// The settings file as the main form keeps it; a second copy of the file would not see the main
// form's own writes. Nothing when the program runs without its main form.
IniFile* MainSettings(ui::Application& app) {
    auto* shell = dynamic_cast<shell::CompanyShell*>(app.MainForm());
    return shell ? &shell->Settings() : nullptr;
}

} // namespace

bool PrinterCheck(ui::Application& app) {
    if (!app.Desktop().DefaultPrinter().empty()) return true;
    IniFile* settings = MainSettings(app);
    if (settings && settings->ReadInteger(General, PrinterInstalled, 0) == 1) return true;
    if (app.MessageDlg("No printer driver was detected. Do you have a printer installed?",
                       ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}, ui::mbNo) != ui::mbYes)
        return false;
    if (settings) settings->WriteInteger(General, PrinterInstalled, 1);
    return true;
}

void RequirePrinter(ui::Application& app) {
    if (!PrinterCheck(app)) throw Exception(kNoPrinterMessage);
}

} // namespace corvane::reports
