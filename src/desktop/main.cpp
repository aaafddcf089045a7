#include "core/RegionalSettings.h"
#include "desktop/DemoForm.h"
#include "desktop/FormWindow.h"
#include "desktop/Look.h"
#include "desktop/QtDesktopServices.h"
#include "desktop/QtDialogs.h"
#include "desktop/QtHost.h"
#include "desktop/QtReportPrinter.h"
#include "program/ProgramForms.h"
#include "reports/preview/ReportOutput.h"
#include "shell/main/FormRegistry.h"
#include "shell/main/TfrmAbout.h"
#include "shell/main/TfrmCorvane.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/tables/CompanyDatabase.h"
#include "ui/Application.h"
#include "ui/MenuItem.h"
#include "ui/TfrmCalendar.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPixmap>
#include <QScreen>
#include <QTableView>
#include <QTimer>

#include <filesystem>
#include <iostream>
#include <string>

namespace {

namespace desktop = corvane::desktop;
namespace store = corvane::store;
namespace ui = corvane::ui;

struct Options {
    std::string Folder;     // the company to open, as the first argument of the program
    std::string Screenshot; // grab a window into this file and quit
    std::string ShotForm = "frmCorvane"; // the window the screenshot grabs
    std::string Menu;        // a main menu entry to run once the program is up ("GL, Accounts")
    int SampleVendors = 250; // vendors a new company gets
    int ScrollTo = -1;       // a row for the list to show, to see a long list scroll
    bool Vendors = false;    // the vendor list instead of the users
};

Options ReadOptions(const QStringList& args) {
    Options options;
    for (int i = 1; i < args.size(); ++i) {
        if (args[i] == "--screenshot" && i + 1 < args.size())
            options.Screenshot = args[++i].toStdString();
        else if (args[i] == "--screenshot-form" && i + 1 < args.size())
            options.ShotForm = args[++i].toStdString();
        else if (args[i] == "--menu" && i + 1 < args.size())
            options.Menu = args[++i].toStdString();
        else if (args[i] == "--vendors" && i + 1 < args.size())
            options.SampleVendors = args[++i].toInt();
        else if (args[i] == "--vendors-list")
            options.Vendors = true;
        else if (args[i] == "--scroll-to" && i + 1 < args.size())
            options.ScrollTo = args[++i].toInt();
        else
            options.Folder = args[i].toStdString();
    }
    return options;
}

// A folder without a company gets a new one, with sample vendors to look at.
void EnsureCompany(corvane::store::Session& session, const std::string& folder, int vendors) {
    namespace fs = std::filesystem;
    if (fs::exists(fs::path(folder) / corvane::store::Database::MarkFileName)) return;
    corvane::store::tables::CreateCompanyDatabase(folder);
    corvane::store::Database db(session);
    db.SetDirectory(folder);
    db.Open();
    corvane::desktop::AddSampleVendors(db, vendors);
    corvane::desktop::AddSampleUsers(db);
    db.Close();
}

// Grabs the window of the form into the file once what its showing set going has settled.
void Screenshot(desktop::QtHost& host, ui::Application& app, const Options& options) {
    QTimer::singleShot(800, [&host, &app, &options] {
        ui::Form* form = app.FindForm(options.ShotForm);
        desktop::FormWindow* window = form ? host.WindowOf(*form) : nullptr;
        // Without a screen to expose it the window first paints here; what that painting set
        // going (the list's reads) settles before the picture is taken.
        if (window) window->grab();
        QCoreApplication::processEvents();
        bool saved = window && window->grab().save(QString::fromStdString(options.Screenshot));
        if (!saved) std::cerr << "Could not save " << options.Screenshot << "\n";
        QApplication::exit(saved ? 0 : 1);
    });
}

// The vendor list of a company of many rows, to see a long list open and scroll.
int RunVendorDemo(desktop::QtHost& host, ui::Application& app, const Options& options) {
    store::Session session;
    store::Database db(session);
    std::string folder = options.Folder.empty()
                             ? (QDir::homePath() + "/Corvane/Vendor Demo").toStdString()
                             : options.Folder;
    try {
        EnsureCompany(session, folder, options.SampleVendors);
        db.SetDirectory(folder);
        db.Open();
    } catch (const std::exception& e) {
        QMessageBox::critical(nullptr, "Corvane", QString::fromStdString(e.what()));
        return 1;
    }
    ui::Form& form = app.CreateForm<desktop::DemoForm>(db);
    app.SetMainForm(form);
    form.Show();
    if (options.ScrollTo >= 0)
        if (auto* list = host.WindowOf(form)->findChild<QTableView*>())
            QTimer::singleShot(200, list, [list, row = options.ScrollTo] {
                list->scrollTo(list->model()->index(row, 0), QAbstractItemView::PositionAtTop);
            });
    Options shot = options;
    shot.ShotForm = form.Name();
    if (!options.Screenshot.empty()) Screenshot(host, app, shot);
    return QApplication::exec();
}

} // namespace

int main(int argc, char* argv[]) {
    using namespace corvane;
    QApplication qt(argc, argv);
    QApplication::setApplicationName("Corvane");
    // Dates and numbers as the user's locale writes them.
    ApplyRegionalSettings(SystemRegionalSettings());
    desktop::ApplyLook(qt);
    Options options = ReadOptions(QApplication::arguments());

    desktop::QtHost host;
    desktop::QtDialogs dialogs;
    desktop::QtDesktopServices services;
    // The registry outlives the application: forms closing at the end may still open others.
    shell::FormRegistry registry;
    program::RegisterProgramForms(registry);
    ui::Application app(host, dialogs, services);
    desktop::QtReportPrinter printer;
    reports::ReportOutput::Install(&printer);
    if (QScreen* screen = QGuiApplication::primaryScreen())
        app.ScaleFactor = screen->logicalDotsPerInch() / 96.0;
    if (options.Vendors) return RunVendorDemo(host, app, options);

    app.CreateForm<shell::TfrmSplash>().Show();
    shell::TfrmCorvane* main = nullptr;
    try {
        main =
            &app.CreateForm<shell::TfrmCorvane>(registry, std::vector<std::string>{options.Folder});
    } catch (const std::exception& e) {
        QMessageBox::critical(nullptr, "Corvane", QString::fromStdString(e.what()));
        return 1;
    }
    // The date picker lives for the whole run, ready for every date box.
    app.SingleForm<ui::TfrmCalendar>();
    main->OnTerminate = [] { QTimer::singleShot(0, [] { QApplication::quit(); }); };
    // Armed first, so that it also catches a window of the start-up, such as the welcome.
    if (!options.Screenshot.empty()) Screenshot(host, app, options);
    app.Run([&] { main->Show(); });
    if (main->Terminated()) return 0;
    if (!options.Menu.empty())
        if (ui::MenuItem* item = main->FindMenuItem(options.Menu))
            app.Run([item] { item->Click(); });
    return QApplication::exec();
}
