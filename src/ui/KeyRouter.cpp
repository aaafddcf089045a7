#include "ui/KeyRouter.h"

#include "ui/Application.h"
#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Host.h"
#include "ui/MenuItem.h"
#include "ui/PageControl.h"

namespace corvane::ui {

MenuItem* KeyRouter::FindShortCut(const Form& form, const KeyStroke& stroke) {
    if (stroke.Code == Key::None) return nullptr;
    for (Component* component : form.Components())
        if (auto* item = dynamic_cast<MenuItem*>(component);
            item && item->ShortCut == stroke && item->Usable())
            return item;
    return nullptr;
}

// The page control the focused control is on, or is.
static PageControl* PagesAround(Control* control) {
    if (auto* pages = dynamic_cast<PageControl*>(control)) return pages;
    return control && control->ParentPage() ? &control->ParentPage()->Owner() : nullptr;
}

bool KeyRouter::DialogKey(Form& form, Control* control, const KeyStroke& stroke) {
    if (control && control->WantsKey(stroke)) return false;
    switch (stroke.Code) {
    case Key::Tab:
        if (stroke.Mods.Ctrl) {
            if (PageControl* pages = PagesAround(control))
                pages->SelectNextPage(!stroke.Mods.Shift);
            return true;
        }
        form.SelectNext(!stroke.Mods.Shift);
        return true;
    case Key::Enter:
        if (form.EnterMovesFocus) {
            form.SelectNext();
            return true;
        }
        // The focused edit has written its value on Enter already.
        if (Button* b = form.DefaultButton()) {
            b->Click();
            return true;
        }
        return false;
    case Key::Escape:
        // The Cancel button drops what was typed, so nothing is written first.
        if (Button* b = form.CancelButton()) {
            b->Click();
            return true;
        }
        return false;
    case Key::Alt:
        form.App().GetHost().ActivateMenuBar(form);
        return true;
    case Key::F1:
        if (!form.App().OnHelp) return false;
        form.App().OnHelp(form);
        return true;
    default:
        return false;
    }
}

void KeyRouter::Route(Form& form, KeyStroke stroke, char ch) {
    if (MenuItem* item = FindShortCut(form, stroke)) {
        item->Click();
        return;
    }
    Control* control = form.ActiveControl();
    Key key = stroke.Code;
    if (form.KeyPreview && form.OnKeyDown) form.OnKeyDown(key, stroke.Mods);
    if (key == Key::None) return;
    if (control) {
        if (control->OnKeyDown) control->OnKeyDown(key, stroke.Mods);
        if (key == Key::None) return;
        control->KeyDown(key, stroke.Mods);
        if (key == Key::None) return;
    }
    if (key != stroke.Code) {
        stroke.Code = key;
        ch = CharOfStroke(stroke);
    }
    // The focus may have moved in a handler: the dialog keys and the character go to where it is
    // now.
    control = form.ActiveControl();
    if (DialogKey(form, control, stroke)) return;
    if (ch == 0) return;
    if (form.KeyPreview && form.OnKeyPress) form.OnKeyPress(ch);
    if (ch == 0 || !control) return;
    if (control->OnKeyPress) control->OnKeyPress(ch);
    if (ch == 0) return;
    control->KeyPress(ch);
}

} // namespace corvane::ui
