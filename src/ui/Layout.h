#pragma once

#include <functional>
#include <initializer_list>
#include <string>
#include <vector>

namespace corvane::ui {

class Control;
class Label;

// The arrangement of a form's controls, declared once in the form's constructor next to its rules:
//
//   SetLayout(Column{
//       Group{"Vendor", {FormRow{"Vendor No", editVendorNo}, FormRow{"Name", editVendorName}}},
//       Row{chkSuspended, Stretch{}},
//       ButtonRow{btnOK, btnCancel},
//   });
//
// The Qt host builds the widgets from this tree; the order of the controls in it is also the tab
// order of the form.
class LayoutItem {
public:
    enum class Kind { Control, Column, Row, Group, FormRow, Stretch, ButtonRow };

    LayoutItem(Control& control);

    Kind ItemKind() const { return kind_; }
    // Kind::Control: the control; Kind::FormRow: its label when the row names a Label control.
    Control* Widget() const { return control_; }
    // The title of a group, the label text of a form row.
    const std::string& Title() const { return title_; }
    // A form row holds one item, its field.
    const std::vector<LayoutItem>& Items() const { return items_; }
    int StretchFactor() const { return factor_; }

    // Every control in reading order; with intoPages, also those on the pages of page controls.
    void ForEachControl(const std::function<void(Control&)>& visit, bool intoPages = true) const;

protected:
    LayoutItem(Kind kind, std::string title, std::vector<LayoutItem> items, int factor = 0,
               Control* control = nullptr);

private:
    Kind kind_;
    std::string title_;
    std::vector<LayoutItem> items_;
    int factor_ = 0;
    Control* control_ = nullptr;
};

// Items one below the other.
struct Column : LayoutItem {
    Column(std::initializer_list<LayoutItem> items) : LayoutItem(Kind::Column, {}, items) {}
};

// Items side by side.
struct Row : LayoutItem {
    Row(std::initializer_list<LayoutItem> items) : LayoutItem(Kind::Row, {}, items) {}
};

// A framed column with a title.
struct Group : LayoutItem {
    Group(std::string title, std::initializer_list<LayoutItem> items)
        : LayoutItem(Kind::Group, std::move(title), items) {}
};

// A label and its field on one line; consecutive rows line their fields up.
struct FormRow : LayoutItem {
    FormRow(std::string label, LayoutItem field)
        : LayoutItem(Kind::FormRow, std::move(label), {field}) {}
    FormRow(Label& label, LayoutItem field);
};

// Empty space that takes what is left.
struct Stretch : LayoutItem {
    explicit Stretch(int factor = 1) : LayoutItem(Kind::Stretch, {}, {}, factor) {}
};

// The dialog buttons, at the bottom right.
struct ButtonRow : LayoutItem {
    ButtonRow(std::initializer_list<LayoutItem> items) : LayoutItem(Kind::ButtonRow, {}, items) {}
};

} // namespace corvane::ui
