#pragma once

class QBoxLayout;
class QLayout;
class QWidget;

namespace corvane::ui {
class Form;
class LayoutItem;
} // namespace corvane::ui

namespace corvane::desktop {

class FormWindow;

// Turns a form's layout tree into Qt layouts: a column into a vertical box, a row into a
// horizontal one, a group into a framed box, consecutive form rows into one two-column form so
// that their fields line up, a button row into buttons at the right.
class LayoutBuilder {
public:
    explicit LayoutBuilder(FormWindow& window) : window_(window) {}

    // The form's whole work area; a form without a layout lists its controls in a column.
    QLayout* BuildForm(ui::Form& form);
    // A layout holding item, for a page of a page control.
    QLayout* Build(const ui::LayoutItem& item);

private:
    void Add(QBoxLayout& box, const ui::LayoutItem& item);
    void AddItems(QBoxLayout& box, const ui::LayoutItem& parent);
    void AddFormRows(QBoxLayout& box, const ui::LayoutItem* const* rows, int count);
    // A widget for a form row's field, or a plain widget holding the field's layout.
    QWidget* FieldWidget(const ui::LayoutItem& item);

    FormWindow& window_;
};

} // namespace corvane::desktop
