#pragma once

#include <functional>
#include <optional>
#include <string>

namespace corvane::ui {

using TimerId = int;

// What the program asks of the desktop it runs on. The Qt host gives the real thing; the headless
// one records each call and answers from what the test or scenario set.
class DesktopServices {
public:
    virtual ~DesktopServices() = default;

    virtual void OpenUrl(const std::string& url) = 0;
    // A "mailto:" text: the user's mail program opens a new message.
    virtual void OpenMail(const std::string& mailto) = 0;
    // Hands a new message with a file attached to the user's mail program, where the person
    // reads it over and sends it; `to` may be empty. Throws Exception with the reason when no
    // mail program takes it.
    virtual void MailFile(const std::string& to, const std::string& subject,
                          const std::string& body, const std::string& file) = 0;
    virtual std::string ClipboardText() = 0;
    virtual void SetClipboardText(const std::string& text) = 0;
    virtual void Beep() = 0;

    // Calls back after intervalMs, once or until stopped. Callbacks run on the user interface
    // thread, between events.
    virtual TimerId StartTimer(int intervalMs, bool repeating, std::function<void()> callback) = 0;
    virtual void StopTimer(TimerId id) = 0;

    // The operating system's login name of the user; empty when it cannot be had.
    virtual std::string LoginUserName() = 0;
    // The country of the user's locale, in English ("Canada").
    virtual std::string CountryName() = 0;
    // The name of the default printer; empty when there is none.
    virtual std::string DefaultPrinter() = 0;
    // The default printer's paper is A4 (else reports stay on Letter).
    virtual bool DefaultPaperIsA4() { return false; }
    // Nothing when the user cancelled.
    virtual std::optional<std::string> PickFolder(const std::string& title,
                                                  const std::string& start) = 0;
    // An existing file to open; filter as "CSV files (*.csv);;All files (*)". Nothing when the
    // user cancelled.
    virtual std::optional<std::string> PickFile(const std::string& title, const std::string& start,
                                                const std::string& filter) = 0;
};

} // namespace corvane::ui
