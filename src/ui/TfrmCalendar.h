#pragma once

#include "core/Date.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/MonthCalendar.h"

#include <optional>
#include <string>

namespace corvane::ui {

// The date picker behind every date field's calendar button. It is made once, through
// Application::SingleForm, and kept for the whole run: callers show it modally and never free it.
// The title above the month reads "MMMM, YYYY" and follows each move of the selection.
class TfrmCalendar : public Form {
public:
    explicit TfrmCalendar(Application& app);

    // Shows the month of start (today when there is none) with start selected; the chosen day,
    // or nothing when the user cancels. A caption names what the date is for ("Transaction Date").
    std::optional<corvane::Date> Execute(std::optional<corvane::Date> start,
                                         const std::string& caption = {});

    Label lblMonth{*this, "lblMonth"};
    Button btnPrevMonth{*this, "btnPrevMonth", "<"};
    Button btnNextMonth{*this, "btnNextMonth", ">"};
    MonthCalendar calMonth{*this, "calMonth"};
    Button btnOK{*this, "btnOK", "OK"};
    Button btnCancel{*this, "btnCancel", "Cancel"};

private:
    void ShowTitle();
};

} // namespace corvane::ui
