#pragma once

#include "ui/DesktopServices.h"

#include <map>
#include <memory>

class QTimer;

namespace corvane::desktop {

// The real desktop: browser, mail program, clipboard, timers and the folder picker.
class QtDesktopServices : public ui::DesktopServices {
public:
    QtDesktopServices();
    ~QtDesktopServices() override;

    void OpenUrl(const std::string& url) override;
    void OpenMail(const std::string& mailto) override;
    // Through xdg-email, which opens the desktop's own mail program.
    void MailFile(const std::string& to, const std::string& subject, const std::string& body,
                  const std::string& file) override;
    std::string ClipboardText() override;
    void SetClipboardText(const std::string& text) override;
    void Beep() override;
    ui::TimerId StartTimer(int intervalMs, bool repeating, std::function<void()> callback) override;
    void StopTimer(ui::TimerId id) override;
    std::string LoginUserName() override;
    std::string CountryName() override;
    std::string DefaultPrinter() override;
    bool DefaultPaperIsA4() override;
    std::optional<std::string> PickFolder(const std::string& title,
                                          const std::string& start) override;
    std::optional<std::string> PickFile(const std::string& title, const std::string& start,
                                        const std::string& filter) override;

private:
    std::map<ui::TimerId, std::unique_ptr<QTimer>> timers_;
    ui::TimerId nextTimer_ = 1;
};

} // namespace corvane::desktop
