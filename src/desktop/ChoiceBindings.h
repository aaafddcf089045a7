#pragma once

#include "desktop/ControlBinding.h"

#include <vector>

class QButtonGroup;
class QCheckBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QRadioButton;

namespace corvane::ui {
class Button;
class CheckBox;
class Label;
class RadioGroup;
} // namespace corvane::ui

namespace corvane::desktop {

class LinkLabel;

// A label; one with a click handler is a link.
class LabelBinding : public ControlBinding {
public:
    LabelBinding(FormWindow& window, ui::Label& label);
    QWidget* Widget() const override;

protected:
    void PullState() override;

private:
    ui::Label& label_;
    LinkLabel* text_;
};

class ButtonBinding : public ControlBinding {
public:
    ButtonBinding(FormWindow& window, ui::Button& button);
    QWidget* Widget() const override;
    bool RoutesKey(const QKeyEvent& event) const override;

protected:
    void PullState() override;

private:
    ui::Button& button_;
    QPushButton* push_;
};

class CheckBinding : public ControlBinding {
public:
    CheckBinding(FormWindow& window, ui::CheckBox& check);
    QWidget* Widget() const override;

protected:
    void PullState() override;

private:
    ui::CheckBox& check_;
    QCheckBox* box_;
};

// A framed group of radio buttons; the arrow keys move the choice as the control decides.
class RadioBinding : public ControlBinding {
public:
    RadioBinding(FormWindow& window, ui::RadioGroup& group);
    QWidget* Widget() const override;
    QWidget* FocusWidget() const override;
    bool RoutesKey(const QKeyEvent& event) const override;

protected:
    void PullState() override;

private:
    ui::RadioGroup& group_;
    QGroupBox* frame_;
    QButtonGroup* buttons_;
    std::vector<QRadioButton*> radios_;
};

} // namespace corvane::desktop
