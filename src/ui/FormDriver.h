#pragma once

#include "ui/Keys.h"
#include "ui/RowWindow.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::ui {

class Application;
class Component;
class Control;
class Form;

// Works a form by component name as a person would: clicks into controls, types, presses keys,
// clicks buttons and menu items, picks rows. Each act runs as a user event through
// Application::Run, so an exception the program raises is shown as an error box, exactly as on the
// desktop. What a person could not do (a name not on the form, a click on a disabled button, typing
// into a read-only edit) is a ScriptError. Tests use it, and so does the scenario runner.
class FormDriver {
public:
    explicit FormDriver(Form& form);
    FormDriver(Application& app, std::string_view formName);

    Form& GetForm() const { return form_; }

    // ----- acting
    // A click into the control (or on a page's tab).
    void Focus(std::string_view name);
    // Clicks into the control, selects what it holds and types text: a key press per character,
    // "\n" as Enter. An empty text deletes what was there. On a combo box of fixed items or a
    // look-up combo it picks the item that reads text.
    void EnterText(std::string_view name, std::string_view text);
    // Characters into the focused control.
    void Type(std::string_view text);
    void PressKey(KeyStroke stroke);
    void PressKey(std::string_view name, KeyStroke stroke);
    // A mouse click on a button (which takes the focus first), a check box, a radio group's page
    // tab, a menu item, a tool button, or the calendar button of a date edit.
    void Click(std::string_view name);
    void SetChecked(std::string_view name, bool checked);
    // The item of a radio group, combo box or look-up combo that reads item; on a list box, a
    // click on the item that reads item, letter case aside.
    void Choose(std::string_view name, std::string_view item);
    void SelectRow(std::string_view gridName, std::int64_t index);
    // Clicks the cell of the column showing fieldName in the grid's current row, types text and
    // presses Enter's writing of the cell (the row stays in edit); an empty text clears it.
    void EnterCell(std::string_view gridName, std::string_view fieldName, std::string_view text);
    void ClickTitle(std::string_view gridName, std::string_view fieldName);
    // A double click on the current row of a grid or the selected item of a list box.
    void DblClick(std::string_view name);
    // The close box of the window.
    void Close();

    // ----- reading
    std::string Text(std::string_view name) const;
    bool Checked(std::string_view name) const;
    bool Enabled(std::string_view name) const;
    // Shown to the user: visible itself and on the active page.
    bool Visible(std::string_view name) const;
    // The component name of the focused control; empty when none has the focus.
    std::string FocusedName() const;
    RowWindow GridRows(std::string_view gridName, int before, int after) const;
    std::vector<std::string> GridRow(std::string_view gridName) const;

private:
    void Act(const std::function<void()>& act) const;
    Control& Reachable(std::string_view name) const;
    [[noreturn]] void Cannot(const Component& component, const std::string& why) const;
    void TypeText(std::string_view text) const;

    Form& form_;
};

} // namespace corvane::ui
