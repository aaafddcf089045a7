#include "desktop/QtDesktopServices.h"

#include "core/Exception.h"
#include "core/RegionalSettings.h"
#include "desktop/QtReportPrinter.h"

#include <QApplication>
#include <QClipboard>
#include <QDesktopServices>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QProcess>
#include <QStandardPaths>
#include <QStringList>
#include <QTimer>
#include <QUrl>

namespace corvane::desktop {

QtDesktopServices::QtDesktopServices() = default;
QtDesktopServices::~QtDesktopServices() = default;

void QtDesktopServices::OpenUrl(const std::string& url) {
    QDesktopServices::openUrl(QUrl(QString::fromStdString(url)));
}

void QtDesktopServices::OpenMail(const std::string& mailto) {
    QDesktopServices::openUrl(QUrl(QString::fromStdString(mailto)));
}

void QtDesktopServices::MailFile(const std::string& to, const std::string& subject,
                                 const std::string& body, const std::string& file) {
    if (!QFileInfo::exists(QString::fromStdString(file)))
        throw Exception("The file " + file + " to be mailed does not exist.");
    const QString program = QStandardPaths::findExecutable("xdg-email");
    if (program.isEmpty())
        throw Exception("No mail program can be reached: xdg-email (package xdg-utils) is not "
                        "installed.");
    QStringList arguments{"--utf8", "--subject", QString::fromStdString(subject)};
    if (!body.empty()) arguments << "--body" << QString::fromStdString(body);
    arguments << "--attach" << QString::fromStdString(file);
    if (!to.empty()) arguments << QString::fromStdString(to);
    // The mail program lives on after the message is handed over; it is not this program's child.
    if (!QProcess::startDetached(program, arguments))
        throw Exception("The mail program could not be started.");
}

std::string QtDesktopServices::ClipboardText() {
    return QGuiApplication::clipboard()->text().toStdString();
}

void QtDesktopServices::SetClipboardText(const std::string& text) {
    QGuiApplication::clipboard()->setText(QString::fromStdString(text));
}

void QtDesktopServices::Beep() {
    QApplication::beep();
}

ui::TimerId QtDesktopServices::StartTimer(int intervalMs, bool repeating,
                                          std::function<void()> callback) {
    ui::TimerId id = nextTimer_++;
    auto timer = std::make_unique<QTimer>();
    timer->setInterval(intervalMs);
    timer->setSingleShot(!repeating);
    QObject::connect(timer.get(), &QTimer::timeout, [this, id, repeating, callback] {
        // A one-shot timer is gone before its callback runs, so that the callback may start
        // another under a new id.
        if (!repeating) {
            auto it = timers_.find(id);
            if (it != timers_.end()) {
                it->second.release()->deleteLater();
                timers_.erase(it);
            }
        }
        callback();
    });
    timer->start();
    timers_.emplace(id, std::move(timer));
    return id;
}

void QtDesktopServices::StopTimer(ui::TimerId id) {
    auto it = timers_.find(id);
    if (it == timers_.end()) return;
    it->second->stop();
    // The timer may be the one whose callback is running now.
    it->second.release()->deleteLater();
    timers_.erase(it);
}

std::string QtDesktopServices::LoginUserName() {
    QString name = qEnvironmentVariable("USER");
    if (name.isEmpty()) name = qEnvironmentVariable("USERNAME");
    return name.toStdString();
}

std::string QtDesktopServices::CountryName() {
    return SystemRegionalSettings().CountryName;
}

std::string QtDesktopServices::DefaultPrinter() {
    std::string name = QtReportPrinter::DefaultPrinterName();
    if (!name.empty()) return name;
    // Without a printer of the system the print dialog still prints to a PDF file: that is a
    // printer to preview for, and nobody needs to be asked whether one is installed.
    return QtReportPrinter::CanPrintToFile() ? QtReportPrinter::FilePrinterName : std::string();
}

bool QtDesktopServices::DefaultPaperIsA4() {
    return QtReportPrinter::DefaultPaperIsA4();
}

std::optional<std::string> QtDesktopServices::PickFolder(const std::string& title,
                                                         const std::string& start) {
    QString folder = QFileDialog::getExistingDirectory(
        QApplication::activeWindow(), QString::fromStdString(title), QString::fromStdString(start));
    if (folder.isEmpty()) return std::nullopt;
    return folder.toStdString();
}

std::optional<std::string> QtDesktopServices::PickFile(const std::string& title,
                                                       const std::string& start,
                                                       const std::string& filter) {
    QString file =
        QFileDialog::getOpenFileName(QApplication::activeWindow(), QString::fromStdString(title),
                                     QString::fromStdString(start), QString::fromStdString(filter));
    if (file.isEmpty()) return std::nullopt;
    return file.toStdString();
}

} // namespace corvane::desktop
