#pragma once

#include "ui/Component.h"
#include "ui/Keys.h"

#include <functional>
#include <string>

namespace corvane::ui {

class Page;
class PopupMenu;

// A component that takes space on the form: it can be shown, enabled and (most) focused, and it
// gets the keys a person presses while it has the focus.
class Control : public Component {
public:
    Control(Form& form, std::string name) : Component(form, std::move(name)) {}

    bool Enabled = true;
    bool Visible = true;
    bool TabStop = true;
    // Drawn in red and bold: a value that is changing under the user's eyes, as the hours of a
    // running timer.
    bool Alert = false;
    PopupMenu* Popup = nullptr;

    // Visible, and on the active page of every page control that holds it.
    bool Showing() const;
    bool CanFocus() const;
    bool Focused() const;
    // Focuses the control, bringing its pages to the front. The control that had the focus writes
    // its pending edit first and may refuse by raising, in which case the focus stays there.
    void SetFocus();
    Page* ParentPage() const { return page_; }

    // What a person reads on the control.
    virtual std::string Text() const { return {}; }

    std::function<void()> OnEnter, OnExit;
    std::function<void(Key& key, Modifiers mods)> OnKeyDown;
    std::function<void(char& ch)> OnKeyPress;

    // Gives the field what the user typed but the control has not yet written, before a command
    // runs. Raises the field's message when the field refuses it.
    virtual void CommitEdit() {}

protected:
    // Labels, progress bars and the like never take the focus.
    virtual bool Focusable() const { return true; }
    // Keys the control lets through KeyDown but wants as characters (Enter in a memo or a grid),
    // which the form therefore does not take as Tab, Enter or Escape.
    virtual bool WantsKey(const KeyStroke&) const { return false; }
    // The control's own handling, after its OnKeyDown and OnKeyPress; setting the key or the
    // character to none marks it used.
    virtual void KeyDown(Key&, Modifiers) {}
    virtual void KeyPress(char&) {}
    virtual void Entered() {}
    // The focus is leaving: a pending edit is written here, and raising keeps the focus.
    virtual void Exiting() { CommitEdit(); }

private:
    friend class Form;
    friend class KeyRouter;
    friend class Page;
    Page* page_ = nullptr;
};

} // namespace corvane::ui
