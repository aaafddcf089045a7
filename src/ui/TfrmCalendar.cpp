#include "ui/TfrmCalendar.h"

#include "core/DateEntry.h"

namespace corvane::ui {

namespace {
constexpr const char* DefaultCaption = "Calendar";
}

TfrmCalendar::TfrmCalendar(Application& app) : Form(app, "frmCalendar") {
    Caption = DefaultCaption;
    // A modal dialog: a lone Alt must not reach the main window's menu bar.
    KeyPreview = true;
    OnKeyDown = [](Key& key, Modifiers) { SwallowAlt(key); };

    btnOK.Default = true;
    btnOK.ModalResult = mrOK;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = mrCancel;
    // The month buttons are for the mouse; the keyboard stays in the days.
    btnPrevMonth.TabStop = btnNextMonth.TabStop = false;
    btnPrevMonth.OnClick = [this] {
        calMonth.MoveMonths(-1);
        if (calMonth.CanFocus()) calMonth.SetFocus();
    };
    btnNextMonth.OnClick = [this] {
        calMonth.MoveMonths(1);
        if (calMonth.CanFocus()) calMonth.SetFocus();
    };
    calMonth.OnChange = [this] { ShowTitle(); };
    calMonth.OnDayClick = [this] { SetModalResult(mrOK); };
    OnShow = [this] { FocusControl(calMonth); };

    SetLayout(Column{
        Row{btnPrevMonth, Stretch{}, lblMonth, Stretch{}, btnNextMonth},
        calMonth,
        ButtonRow{btnOK, btnCancel},
    });
    ShowTitle();
}

void TfrmCalendar::ShowTitle() {
    lblMonth.Caption = FormatDate("MMMM, YYYY", calMonth.SelectedDate());
}

std::optional<corvane::Date> TfrmCalendar::Execute(std::optional<corvane::Date> start,
                                                   const std::string& caption) {
    Caption = caption.empty() ? DefaultCaption : caption;
    calMonth.SetDate(start.value_or(corvane::Date::Today()));
    ShowTitle();
    if (ShowModal() != mrOK) return std::nullopt;
    return calMonth.SelectedDate();
}

} // namespace corvane::ui
