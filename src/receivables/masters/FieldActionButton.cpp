#include "receivables/masters/FieldActionButton.h"

#include "core/Text.h"
#include "ui/Application.h"
#include "ui/Button.h"

namespace corvane::receivables {

FieldActionButton::FieldActionButton(ui::Button& button, store::DataSet& dataSet,
                                     std::string fieldName,
                                     std::function<void(const std::string&)> action)
    : button_(button), action_(std::move(action)),
      link_(dataSet, std::move(fieldName), [this] { Follow(); }) {
    button_.OnClick = [this] {
        if (store::Field* field = link_.Field())
            action_(std::string(TrimBlanks(field->AsString())));
    };
    Follow();
}

void FieldActionButton::Follow() {
    store::Field* field = link_.Field();
    button_.Enabled = field && !TrimBlanks(field->AsString()).empty();
}

void DialNumber(ui::Application& app, const std::string& number) {
    app.Desktop().OpenUrl("tel:" + number);
}

void MailTo(ui::Application& app, const std::string& address) {
    app.Desktop().OpenMail("mailto:" + address);
}

void BrowseTo(ui::Application& app, const std::string& webPage) {
    app.Desktop().OpenUrl("http://" + webPage);
}

} // namespace corvane::receivables
