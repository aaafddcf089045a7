#include "ui/HeadlessDesktop.h"

#include "core/Exception.h"
#include "ui/ScriptError.h"

#include <algorithm>

namespace corvane::ui {

void HeadlessDesktop::OpenUrl(const std::string& url) {
    calls_.push_back("OpenUrl " + url);
}

void HeadlessDesktop::OpenMail(const std::string& mailto) {
    calls_.push_back("OpenMail " + mailto);
}

void HeadlessDesktop::MailFile(const std::string& to, const std::string& subject,
                               const std::string& body, const std::string& file) {
    calls_.push_back("MailFile " + to + " | " + subject + " | " + file);
    if (!MailRefusal.empty()) throw Exception(MailRefusal);
    mails_.push_back({to, subject, body, file});
}

void HeadlessDesktop::SetClipboardText(const std::string& text) {
    clipboard_ = text;
    calls_.push_back("SetClipboardText " + text);
}

void HeadlessDesktop::Beep() {
    ++beeps_;
    calls_.push_back("Beep");
}

TimerId HeadlessDesktop::StartTimer(int intervalMs, bool repeating,
                                    std::function<void()> callback) {
    TimerId id = nextTimer_++;
    timers_[id] = Timer{std::max(intervalMs, 1), repeating, now_ + std::max(intervalMs, 1),
                        std::move(callback)};
    return id;
}

void HeadlessDesktop::StopTimer(TimerId id) {
    timers_.erase(id);
}

void HeadlessDesktop::AdvanceTime(int ms) {
    long long until = now_ + ms;
    while (true) {
        // The earliest due timer; a callback may start or stop timers, so look again each time.
        auto next =
            std::min_element(timers_.begin(), timers_.end(), [](const auto& a, const auto& b) {
                return a.second.Due < b.second.Due;
            });
        if (next == timers_.end() || next->second.Due > until) break;
        now_ = next->second.Due;
        auto callback = next->second.Callback;
        if (next->second.Repeating)
            next->second.Due += next->second.Interval;
        else
            timers_.erase(next);
        callback();
    }
    now_ = until;
}

std::optional<std::string> HeadlessDesktop::PickFolder(const std::string& title,
                                                       const std::string& start) {
    calls_.push_back("PickFolder " + title + " | " + start);
    if (folders_.empty()) throw ScriptError("No answer scripted for folder picker: " + title);
    auto answer = folders_.front();
    folders_.pop_front();
    return answer;
}

std::optional<std::string> HeadlessDesktop::PickFile(const std::string& title,
                                                     const std::string& start,
                                                     const std::string& filter) {
    calls_.push_back("PickFile " + title + " | " + start + " | " + filter);
    if (files_.empty()) throw ScriptError("No answer scripted for file picker: " + title);
    auto answer = files_.front();
    files_.pop_front();
    return answer;
}

} // namespace corvane::ui
