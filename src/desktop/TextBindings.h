#pragma once

#include "desktop/ControlBinding.h"

class QComboBox;
class QLineEdit;
class QPlainTextEdit;
class QSpinBox;
class QToolButton;

namespace corvane::ui {
class ComboBox;
class CustomEdit;
class DateEdit;
class SpinEdit;
} // namespace corvane::ui

namespace corvane::desktop {

// A one-line edit (plain or bound); the base of the date edit's box.
class EditBinding : public ControlBinding {
public:
    EditBinding(FormWindow& window, ui::CustomEdit& edit, QLineEdit* line,
                QWidget* outer = nullptr);
    QWidget* Widget() const override { return outer_; }
    QWidget* FocusWidget() const override;

protected:
    void PullState() override;
    QLineEdit* Line() const { return line_; }

private:
    ui::CustomEdit& edit_;
    QLineEdit* line_;
    QWidget* outer_;
    int shownChars_ = 0;
};

// A date: the text box and a button that opens the calendar.
class DateEditBinding : public EditBinding {
public:
    DateEditBinding(FormWindow& window, ui::DateEdit& date);
    bool RoutesKey(const QKeyEvent& event) const override;

private:
    struct Parts {
        QWidget* Box = nullptr;
        QLineEdit* Line = nullptr;
        QToolButton* Button = nullptr;
    };
    static Parts MakeParts();
    DateEditBinding(FormWindow& window, ui::DateEdit& date, Parts parts);
    void ButtonClicked();
    ui::DateEdit& date_;
    QToolButton* button_;
};

class MemoBinding : public ControlBinding {
public:
    MemoBinding(FormWindow& window, ui::CustomEdit& memo);
    QWidget* Widget() const override;
    bool RoutesKey(const QKeyEvent& event) const override;

protected:
    void PullState() override;

private:
    ui::CustomEdit& memo_;
    QPlainTextEdit* text_;
};

class SpinBinding : public ControlBinding {
public:
    SpinBinding(FormWindow& window, ui::SpinEdit& spin);
    QWidget* Widget() const override;
    bool RoutesKey(const QKeyEvent& event) const override;

protected:
    void PullState() override;

private:
    ui::SpinEdit& spin_;
    QSpinBox* box_;
};

// A combo of fixed items; with the DropDown style its text may also be typed.
class ComboBinding : public ControlBinding {
public:
    ComboBinding(FormWindow& window, ui::ComboBox& combo);
    QWidget* Widget() const override;

protected:
    void PullState() override;

private:
    ui::ComboBox& combo_;
    QComboBox* box_;
};

} // namespace corvane::desktop
