#pragma once

#include "ui/FieldDataLink.h"

#include <functional>
#include <string>

namespace corvane::ui {
class Application;
class Button;
} // namespace corvane::ui

namespace corvane::receivables {

// A button beside a phone, e-mail or web field: enabled only while the field holds something,
// and a click hands the field's text to the action (the dialler, the mail program, the browser).
class FieldActionButton {
public:
    FieldActionButton(ui::Button& button, store::DataSet& dataSet, std::string fieldName,
                      std::function<void(const std::string& text)> action);

private:
    void Follow();

    ui::Button& button_;
    std::function<void(const std::string&)> action_;
    ui::FieldDataLink link_;
};

// The desktop's ways of reaching someone, through the program's desktop services.
void DialNumber(ui::Application& app, const std::string& number);
void MailTo(ui::Application& app, const std::string& address);
void BrowseTo(ui::Application& app, const std::string& webPage);

} // namespace corvane::receivables
