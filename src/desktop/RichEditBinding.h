#pragma once

#include "desktop/ControlBinding.h"

#include <QString>

class QTextEdit;

namespace corvane::ui {
class RichEdit;
}

namespace corvane::desktop {

// A rich edit as Qt's rich text box: the control holds the box's HTML, and formatting and find
// are carried out on the box.
class RichEditBinding : public ControlBinding {
public:
    RichEditBinding(FormWindow& window, ui::RichEdit& edit);
    ~RichEditBinding() override;
    QWidget* Widget() const override;
    bool RoutesKey(const QKeyEvent& event) const override;
    void Detach() override;

protected:
    void PullState() override;

private:
    ui::RichEdit* edit_;
    QTextEdit* text_;
    // The HTML the box last gave or was given; Qt writes the same text in its own way, so the
    // control's text is compared with this rather than read back.
    QString shown_;
};

} // namespace corvane::desktop
