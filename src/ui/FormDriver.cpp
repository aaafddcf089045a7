#include "ui/FormDriver.h"

#include "ui/Application.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/CustomEdit.h"
#include "ui/DBLookupComboBox.h"
#include "ui/DateEdit.h"
#include "ui/Form.h"
#include "ui/Grid.h"
#include "ui/ListBox.h"
#include "ui/MenuItem.h"
#include "ui/PageControl.h"
#include "ui/RadioGroup.h"
#include "ui/ScriptError.h"
#include "ui/ToolBar.h"

namespace corvane::ui {

FormDriver::FormDriver(Form& form) : form_(form) {}

FormDriver::FormDriver(Application& app, std::string_view formName)
    : form_(app.GetForm(formName)) {}

void FormDriver::Act(const std::function<void()>& act) const {
    form_.App().Run(act);
}

void FormDriver::Cannot(const Component& component, const std::string& why) const {
    throw ScriptError(std::string(component.TypeName()) + " '" + component.Name() + "' on form '" +
                      form_.Name() + "' " + why);
}

Control& FormDriver::Reachable(std::string_view name) const {
    auto& control = form_.Get<Control>(name);
    if (!control.Showing()) Cannot(control, "is not visible");
    if (!control.Enabled) Cannot(control, "is disabled");
    return control;
}

// ----- acting

void FormDriver::Focus(std::string_view name) {
    Component& component = form_.Get(name);
    if (auto* page = dynamic_cast<Page*>(&component)) {
        Act([page] { page->Owner().SetActivePage(*page); });
        return;
    }
    Control& control = Reachable(name);
    if (!control.CanFocus()) Cannot(control, "cannot take the focus");
    Act([&control] { control.SetFocus(); });
}

void FormDriver::TypeText(std::string_view text) const {
    for (char ch : text) {
        if (ch == '\n')
            form_.PressKey(Key::Enter);
        else
            form_.TypeChar(ch);
    }
}

void FormDriver::EnterText(std::string_view name, std::string_view text) {
    Control& control = Reachable(name);
    if (auto* lookup = dynamic_cast<DBLookupComboBox*>(&control)) {
        Act([&] {
            lookup->SetFocus();
            text.empty() ? lookup->ClearChoice() : lookup->Choose(text);
        });
        return;
    }
    auto* edit = dynamic_cast<CustomEdit*>(&control);
    if (!edit) Cannot(control, "does not take typed text");
    if (edit->IsReadOnly()) Cannot(control, "is read-only");
    if (auto* combo = dynamic_cast<ComboBox*>(edit);
        combo && combo->Style == ComboStyle::DropDownList) {
        Act([&] {
            combo->SetFocus();
            combo->Choose(text);
        });
        return;
    }
    Act([&] {
        edit->SetFocus();
        edit->SelectAll();
        if (text.empty())
            form_.PressKey(Key::Delete);
        else
            TypeText(text);
    });
}

void FormDriver::Type(std::string_view text) {
    Act([&] { TypeText(text); });
}

void FormDriver::PressKey(KeyStroke stroke) {
    Act([&] { form_.PressKey(stroke); });
}

void FormDriver::PressKey(std::string_view name, KeyStroke stroke) {
    Control& control = Reachable(name);
    Act([&] {
        control.SetFocus();
        form_.PressKey(stroke);
    });
}

void FormDriver::EnterCell(std::string_view gridName, std::string_view fieldName,
                           std::string_view text) {
    auto* grid = dynamic_cast<Grid*>(&Reachable(gridName));
    if (!grid) Cannot(form_.Get<Control>(gridName), "is not a grid");
    if (grid->ReadOnly) Cannot(*grid, "is read-only");
    grid->Column(fieldName); // a ScriptError when the grid has no such column
    Act([&] { grid->EditCell(fieldName, text); });
}

void FormDriver::Click(std::string_view name) {
    Component& component = form_.Get(name);
    if (auto* item = dynamic_cast<MenuItem*>(&component)) {
        if (!item->Usable())
            Cannot(*item, "cannot be reached: it or a menu above it is disabled or hidden");
        Act([item] { item->Click(); });
    } else if (auto* tool = dynamic_cast<ToolButton*>(&component)) {
        if (!tool->Enabled() || !tool->Visible()) Cannot(*tool, "is disabled or hidden");
        Act([tool] { tool->Click(); });
    } else if (dynamic_cast<Page*>(&component)) {
        Focus(name);
    } else if (auto* button = dynamic_cast<Button*>(&Reachable(name))) {
        // A mouse click takes the focus first: the control being left writes its value, and may
        // refuse, in which case the click is lost, as on the desktop.
        Act([button] {
            if (button->CanFocus())
                button->SetFocus();
            else
                button->OwnerForm().CommitPendingEdit();
            if (button->Focused() || !button->CanFocus()) button->Click();
        });
    } else if (auto* box = dynamic_cast<CheckBox*>(&component)) {
        Act([box] {
            box->SetFocus();
            box->Toggle();
        });
    } else if (auto* date = dynamic_cast<DateEdit*>(&component)) {
        Act([date] { date->ClickButton(); });
    } else {
        Cannot(component, "cannot be clicked");
    }
}

void FormDriver::SetChecked(std::string_view name, bool checked) {
    auto& box = form_.Get<CheckBox>(name);
    Reachable(name);
    if (box.Checked() != checked) Click(name);
}

void FormDriver::Choose(std::string_view name, std::string_view item) {
    Control& control = Reachable(name);
    if (auto* group = dynamic_cast<RadioGroup*>(&control)) {
        Act([&] {
            group->SetFocus();
            group->Choose(item);
        });
    } else if (auto* combo = dynamic_cast<ComboBox*>(&control)) {
        Act([&] {
            combo->SetFocus();
            combo->Choose(item);
        });
    } else if (auto* lookup = dynamic_cast<DBLookupComboBox*>(&control)) {
        Act([&] {
            lookup->SetFocus();
            lookup->Choose(item);
        });
    } else if (auto* list = dynamic_cast<ListBox*>(&control)) {
        int index = list->IndexOf(item);
        if (index < 0) Cannot(*list, "has no item '" + std::string(item) + "'");
        Act([list, index] {
            list->SetFocus();
            list->ClickItem(index);
        });
    } else {
        Cannot(control, "has no items to choose from");
    }
}

void FormDriver::SelectRow(std::string_view gridName, std::int64_t index) {
    auto& grid = form_.Get<Grid>(gridName);
    Reachable(gridName);
    Act([&] { grid.SelectRow(index); });
}

void FormDriver::ClickTitle(std::string_view gridName, std::string_view fieldName) {
    auto& grid = form_.Get<Grid>(gridName);
    Reachable(gridName);
    grid.Column(fieldName); // a missing column is the script's mistake, not the program's
    Act([&] { grid.ClickTitle(fieldName); });
}

void FormDriver::DblClick(std::string_view name) {
    Control& control = Reachable(name);
    if (auto* grid = dynamic_cast<Grid*>(&control)) {
        Act([grid] {
            grid->SetFocus();
            grid->DblClick();
        });
    } else if (auto* list = dynamic_cast<ListBox*>(&control)) {
        // A double click lands on an item: on an empty list there is nothing to click.
        if (list->ItemIndex() < 0) Cannot(*list, "has no selected item to double-click");
        Act([list] {
            list->SetFocus();
            list->DblClick();
        });
    } else {
        Cannot(control, "cannot be double-clicked");
    }
}

void FormDriver::Close() {
    Act([this] { form_.Close(); });
}

// ----- reading

std::string FormDriver::Text(std::string_view name) const {
    Component& component = form_.Get(name);
    if (auto* control = dynamic_cast<Control*>(&component)) return control->Text();
    if (auto* item = dynamic_cast<MenuItem*>(&component)) return item->Caption;
    if (auto* tool = dynamic_cast<ToolButton*>(&component)) return tool->Caption();
    if (auto* page = dynamic_cast<Page*>(&component)) return page->Caption;
    Cannot(component, "has no text");
}

bool FormDriver::Checked(std::string_view name) const {
    Component& component = form_.Get(name);
    if (auto* box = dynamic_cast<CheckBox*>(&component)) return box->Checked();
    if (auto* item = dynamic_cast<MenuItem*>(&component)) return item->Checked();
    Cannot(component, "cannot be checked");
}

bool FormDriver::Enabled(std::string_view name) const {
    Component& component = form_.Get(name);
    if (auto* control = dynamic_cast<Control*>(&component)) return control->Enabled;
    if (auto* item = dynamic_cast<MenuItem*>(&component)) return item->Enabled;
    if (auto* tool = dynamic_cast<ToolButton*>(&component)) return tool->Enabled();
    if (auto* page = dynamic_cast<Page*>(&component)) return page->Owner().Enabled;
    Cannot(component, "cannot be enabled or disabled");
}

bool FormDriver::Visible(std::string_view name) const {
    Component& component = form_.Get(name);
    if (auto* control = dynamic_cast<Control*>(&component)) return control->Showing();
    if (auto* item = dynamic_cast<MenuItem*>(&component)) return item->Visible;
    if (auto* tool = dynamic_cast<ToolButton*>(&component)) return tool->Visible();
    if (auto* page = dynamic_cast<Page*>(&component)) return page->TabVisible;
    Cannot(component, "cannot be shown or hidden");
}

std::string FormDriver::FocusedName() const {
    Control* control = form_.ActiveControl();
    return control ? control->Name() : std::string();
}

RowWindow FormDriver::GridRows(std::string_view gridName, int before, int after) const {
    return form_.Get<Grid>(gridName).Rows(before, after);
}

std::vector<std::string> FormDriver::GridRow(std::string_view gridName) const {
    return form_.Get<Grid>(gridName).CurrentRow();
}

} // namespace corvane::ui
