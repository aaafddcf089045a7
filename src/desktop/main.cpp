#include "desktop/DemoForm.h"
#include "desktop/FormWindow.h"
#include "desktop/Look.h"
#include "desktop/QtDesktopServices.h"
#include "desktop/QtDialogs.h"
#include "desktop/QtHost.h"
#include "shell/users/TfrmUsers.h"
#include "store/Database.h"
#include "store/Session.h"
#include "store/tables/CompanyDatabase.h"
#include "ui/Application.h"

#include <QApplication>
#include <QDir>
#include <QMessageBox>
#include <QPixmap>
#include <QTableView>
#include <QTimer>

#include <filesystem>
#include <iostream>
#include <string>

namespace {

struct Options {
    std::string Folder;
    std::string Screenshot;  // grab the first window into this file and quit
    int SampleVendors = 250; // vendors a new company gets
    int ScrollTo = -1;       // a row for the list to show, to see a long list scroll
    bool Vendors = false;    // the vendor list instead of the users
};

Options ReadOptions(const QStringList& args) {
    Options options;
    for (int i = 1; i < args.size(); ++i) {
        if (args[i] == "--screenshot" && i + 1 < args.size())
            options.Screenshot = args[++i].toStdString();
        else if (args[i] == "--vendors" && i + 1 < args.size())
            options.SampleVendors = args[++i].toInt();
        else if (args[i] == "--vendors-list")
            options.Vendors = true;
        else if (args[i] == "--scroll-to" && i + 1 < args.size())
            options.ScrollTo = args[++i].toInt();
        else
            options.Folder = args[i].toStdString();
    }
    if (options.Folder.empty())
        options.Folder = (QDir::homePath() + "/Corvane/Sample Data").toStdString();
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

} // namespace

int main(int argc, char* argv[]) {
    using namespace corvane;
    QApplication qt(argc, argv);
    QApplication::setApplicationName("Corvane");
    desktop::ApplyLook(qt);
    Options options = ReadOptions(QApplication::arguments());

    store::Session session;
    store::Database db(session);
    try {
        EnsureCompany(session, options.Folder, options.SampleVendors);
        db.SetDirectory(options.Folder);
        db.Open();
    } catch (const std::exception& e) {
        QMessageBox::critical(nullptr, "Corvane", QString::fromStdString(e.what()));
        return 1;
    }

    desktop::QtHost host;
    desktop::QtDialogs dialogs;
    desktop::QtDesktopServices services;
    ui::Application app(host, dialogs, services);
    ui::Form& form = options.Vendors ? static_cast<ui::Form&>(app.CreateForm<desktop::DemoForm>(db))
                                     : app.CreateForm<shell::TfrmUsers>(db);
    app.SetMainForm(form);
    form.Show();

    if (options.ScrollTo >= 0)
        if (auto* list = host.WindowOf(form)->findChild<QTableView*>())
            QTimer::singleShot(200, list, [list, row = options.ScrollTo] {
                list->scrollTo(list->model()->index(row, 0), QAbstractItemView::PositionAtTop);
            });
    if (!options.Screenshot.empty()) {
        QTimer::singleShot(800, [&] {
            desktop::FormWindow* window = host.WindowOf(form);
            // Without a screen to expose it the window first paints here; what that painting
            // set going (the list's reads) settles before the picture is taken.
            if (window) window->grab();
            QCoreApplication::processEvents();
            bool saved = window && window->grab().save(QString::fromStdString(options.Screenshot));
            if (!saved) std::cerr << "Could not save " << options.Screenshot << "\n";
            QApplication::exit(saved ? 0 : 1);
        });
    }
    return QApplication::exec();
}
