#pragma once

#include "ui/DesktopServices.h"

#include <deque>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace corvane::ui {

// The desktop without a screen. Calls are recorded as lines ("OpenUrl https://...") in the order
// made; answers come from the public fields and the folder queue; timers run on a clock that only
// AdvanceTime moves, so that tests decide when they fire.
class HeadlessDesktop : public DesktopServices {
public:
    std::string LoginUser;
    std::string Country;
    std::string Printer;

    // A message handed to the mail program.
    struct Mail {
        std::string To, Subject, Body, File;
    };
    // When set, the mail program refuses every message with this reason.
    std::string MailRefusal;
    const std::vector<Mail>& Mails() const { return mails_; }

    // The answer to the next folder picker: a path, or nothing for a cancel.
    void AnswerFolder(std::optional<std::string> path) { folders_.push_back(std::move(path)); }
    // The answer to the next file picker, likewise.
    void AnswerFile(std::optional<std::string> path) { files_.push_back(std::move(path)); }
    // Moves the clock and fires the timers that fall due, in the order they fall due.
    void AdvanceTime(int ms);

    const std::vector<std::string>& Calls() const { return calls_; }
    int Beeps() const { return beeps_; }
    std::size_t RunningTimers() const { return timers_.size(); }

    void OpenUrl(const std::string& url) override;
    void OpenMail(const std::string& mailto) override;
    void MailFile(const std::string& to, const std::string& subject, const std::string& body,
                  const std::string& file) override;
    std::string ClipboardText() override { return clipboard_; }
    void SetClipboardText(const std::string& text) override;
    void Beep() override;
    TimerId StartTimer(int intervalMs, bool repeating, std::function<void()> callback) override;
    void StopTimer(TimerId id) override;
    std::string LoginUserName() override { return LoginUser; }
    std::string CountryName() override { return Country; }
    std::string DefaultPrinter() override { return Printer; }
    std::optional<std::string> PickFolder(const std::string& title,
                                          const std::string& start) override;
    std::optional<std::string> PickFile(const std::string& title, const std::string& start,
                                        const std::string& filter) override;

private:
    struct Timer {
        int Interval;
        bool Repeating;
        long long Due;
        std::function<void()> Callback;
    };
    std::vector<std::string> calls_;
    std::vector<Mail> mails_;
    std::string clipboard_;
    int beeps_ = 0;
    std::deque<std::optional<std::string>> folders_;
    std::deque<std::optional<std::string>> files_;
    std::map<TimerId, Timer> timers_;
    TimerId nextTimer_ = 1;
    long long now_ = 0;
};

} // namespace corvane::ui
