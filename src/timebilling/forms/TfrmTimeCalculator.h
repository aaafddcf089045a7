#pragma once

#include "ui/Button.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/Label.h"

#include <array>
#include <memory>

namespace corvane::timebilling {

// Turns up to six spans of clock times into hours: each row's elapsed time, their total in
// hours and minutes and in decimal hours, which OK hands back.
class TfrmTimeCalculator : public ui::Form {
public:
    static constexpr int Rows = 6;
    explicit TfrmTimeCalculator(ui::Application& app);

    std::array<std::unique_ptr<ui::Edit>, Rows> editStart, editStop;
    std::array<std::unique_ptr<ui::Label>, Rows> lblElapsed;
    ui::Label lblTotal{*this, "lblTotal"};
    ui::Label lblDecimal{*this, "lblDecimal"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

    // Empty rows and the present hours as the total.
    void Start(double hours);
    // Recounts the rows.
    void Calculate();
    double DecimalTotal() const { return decimal_; }

private:
    double decimal_ = 0;
};

} // namespace corvane::timebilling
