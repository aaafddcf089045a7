#include "timebilling/forms/TfrmTimeCalculator.h"

#include "core/DisplayFormat.h"
#include "timebilling/domain/TimeCalculator.h"
#include "ui/Layout.h"

namespace corvane::timebilling {

TfrmTimeCalculator::TfrmTimeCalculator(ui::Application& app) : Form(app, "frmTimeCalculator") {
    using namespace ui;
    Caption = "Time Calculator";
    for (int i = 0; i < Rows; ++i) {
        const std::string n = std::to_string(i + 1);
        editStart[i] = std::make_unique<Edit>(*this, "editStart" + n);
        editStop[i] = std::make_unique<Edit>(*this, "editStop" + n);
        lblElapsed[i] = std::make_unique<Label>(*this, "lblElapsed" + n);
        for (Edit* e : {editStart[i].get(), editStop[i].get()}) {
            e->SetEditMask("!99:99;1;_");
            e->OnChange = [this] { Calculate(); };
        }
    }
    auto row = [this](int i) {
        return Row{*editStart[i], *editStop[i], *lblElapsed[i], Stretch{}};
    };
    // Each row is one stretch of work: when it started, when it stopped, and how long it was.
    SetLayout(Column{
        Group{"Start and stop times", {row(0), row(1), row(2), row(3), row(4), row(5)}},
        FormRow{"Total", Row{lblTotal, lblDecimal, Stretch{}}},
        ButtonRow{btnOK, btnCancel},
    });
    btnCancel.Cancel = true;
    btnOK.OnClick = [this] {
        Calculate();
        SetModalResult(mrOK);
    };
    btnCancel.OnClick = [this] { SetModalResult(mrCancel); };
}

void TfrmTimeCalculator::Start(double hours) {
    for (int i = 0; i < Rows; ++i) {
        editStart[i]->SetText("");
        editStop[i]->SetText("");
        lblElapsed[i]->Caption.clear();
    }
    decimal_ = hours;
    lblTotal.Caption = ShowElapsed(MinutesOfHours(hours));
    lblDecimal.Caption = FormatFloat("0.00", hours);
}

void TfrmTimeCalculator::Calculate() {
    int total = 0;
    bool any = false;
    for (int i = 0; i < Rows; ++i) {
        auto start = ReadClockTime(editStart[i]->Text());
        auto stop = ReadClockTime(editStop[i]->Text());
        if (!start || !stop) {
            lblElapsed[i]->Caption.clear();
            continue;
        }
        any = true;
        const int minutes = ElapsedMinutes(*start, *stop);
        lblElapsed[i]->Caption = ShowElapsed(minutes);
        if (minutes > 0) total += minutes;
    }
    if (!any) return;
    decimal_ = DecimalHours(total);
    lblTotal.Caption = ShowElapsed(total);
    lblDecimal.Caption = FormatFloat("0.00", decimal_);
}

} // namespace corvane::timebilling
