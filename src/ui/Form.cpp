#include "ui/Form.h"

#include "core/Exception.h"
#include "ui/Application.h"
#include "ui/Button.h"
#include "ui/Component.h"
#include "ui/Control.h"
#include "ui/Host.h"
#include "ui/KeyRouter.h"
#include "ui/PageControl.h"
#include "ui/ScriptError.h"

#include <algorithm>
#include <cctype>

namespace corvane::ui {

Form::Form(Application& app, std::string name) : app_(app), name_(std::move(name)) {
    app_.Register(*this);
}

Form::~Form() {
    app_.GetHost().FormGone(*this);
    app_.Unregister(*this);
}

// ----- components

void Form::Register(Component& component) {
    if (!component.Name().empty() && FindComponent(component.Name()))
        throw Exception("A component named '" + component.Name() + "' already exists on form '" +
                        name_ + "'");
    components_.push_back(&component);
}

void Form::Unregister(Component& component) {
    components_.erase(std::remove(components_.begin(), components_.end(), &component),
                      components_.end());
    tabOrder_.erase(std::remove(tabOrder_.begin(), tabOrder_.end(), &component), tabOrder_.end());
    if (focused_ == &component) focused_ = nullptr;
}

Component* Form::FindComponent(std::string_view name) const {
    if (name.empty()) return nullptr;
    auto it = std::find_if(components_.begin(), components_.end(),
                           [&](const Component* c) { return c->Name() == name; });
    return it == components_.end() ? nullptr : *it;
}

Component& Form::Require(std::string_view name) const {
    if (Component* c = FindComponent(name)) return *c;
    throw ScriptError("No component '" + std::string(name) + "' on form '" + name_ + "'");
}

void Form::WrongKind(const Component& component) const {
    throw ScriptError("Component '" + component.Name() + "' on form '" + name_ + "' (" +
                      component.TypeName() + ") is not the kind asked for");
}

void Form::SetLayout(LayoutItem root) {
    layout_ = std::make_unique<LayoutItem>(std::move(root));
}

// ----- placing

void Form::CentreOn(const Control& control) {
    const Host& host = app_.GetHost();
    CentreOn(host.ControlRect(control).value_or(host.WorkArea()));
}

void Form::CentreOn(const ScreenRect& area) {
    Left = area.Left + (area.Width - std::max(ClientWidth, 0)) / 2;
    Top = area.Top + (area.Height - std::max(ClientHeight, 0)) / 2;
    KeepOnScreen();
}

void Form::KeepOnScreen() {
    ScreenRect screen = app_.GetHost().WorkArea();
    // The right and bottom edges first, so that a form larger than the screen ends up with its
    // caption and left side visible.
    Left = std::min(Left, screen.Left + screen.Width - std::max(ClientWidth, 0));
    Top = std::min(Top, screen.Top + screen.Height - std::max(ClientHeight, 0));
    Left = std::max(Left, screen.Left);
    Top = std::max(Top, screen.Top);
}

// ----- showing and closing

void Form::EnsureCreated() {
    if (created_) return;
    created_ = true;
    if (OnCreate) OnCreate();
}

void Form::Show() {
    EnsureCreated();
    if (!visible_) {
        if (OnShow) OnShow();
        visible_ = true;
        FocusFirst();
    }
    app_.GetHost().ShowForm(*this);
}

ui::ModalResult Form::ShowModal() {
    if (visible_) throw Exception("Cannot make a visible window modal");
    EnsureCreated();
    modalResult_ = mrNone;
    if (OnShow) OnShow();
    visible_ = true;
    modal_ = true;
    // However the host returns, even by a failed script, the form is no longer modal or shown.
    // The modal loop counts as an event, so that a form freed inside it outlives this call; the
    // events of the loop are the host's to refresh after, as those of the main loop are.
    int outerLoop = app_.loopDepth_;
    app_.loopDepth_ = ++app_.depth_;
    struct Leave {
        Form& form;
        int outerLoop;
        ~Leave() {
            form.modal_ = false;
            form.visible_ = false;
            --form.app_.depth_;
            form.app_.loopDepth_ = outerLoop;
        }
    } leave{*this, outerLoop};
    FocusFirst();
    app_.GetHost().RunModal(*this);
    return modalResult_;
}

void Form::Close() {
    if (modal_ && modalResult_ == mrNone) modalResult_ = mrCancel;
    CloseWithResult();
}

void Form::SetModalResult(ui::ModalResult result) {
    modalResult_ = result;
    if (result != mrNone && modal_) CloseWithResult();
}

void Form::CloseWithResult() {
    if (!visible_) return;
    CloseAction action = CloseQuery() ? CloseAction::Hide : CloseAction::None;
    if (action != CloseAction::None && OnClose) OnClose(action);
    if (action == CloseAction::None) {
        if (modal_) modalResult_ = mrNone;
        return;
    }
    Hide();
    if (action == CloseAction::Free) app_.FreeForm(*this);
}

bool Form::CloseQuery() {
    bool canClose = true;
    if (OnCloseQuery) OnCloseQuery(canClose);
    return canClose;
}

void Form::Hide() {
    if (!visible_) return;
    visible_ = false;
    if (OnHide) OnHide();
    app_.GetHost().HideForm(*this);
}

// ----- focus

void Form::FocusControl(Control& control) {
    if (&control.OwnerForm() != this)
        throw Exception("Control '" + control.Name() + "' is not on form '" + name_ + "'");
    if (focused_ == &control) return;
    // A page in the back is brought forward, so that a validation can always show its field.
    for (Page* page = control.page_; page; page = page->Owner().page_) {
        if (!page->TabVisible) break;
        page->Owner().SetActivePage(*page);
    }
    if (!control.CanFocus()) throw Exception("Cannot focus a disabled or invisible window");
    if (Control* old = focused_) {
        old->Exiting();
        if (old->OnExit) old->OnExit();
        // An exit handler may have moved the focus itself; that choice stands.
        if (focused_ != old) return;
    }
    focused_ = &control;
    control.Entered();
    if (control.OnEnter) control.OnEnter();
}

void Form::FocusFirst() {
    if (focused_ && focused_->CanFocus()) return;
    focused_ = nullptr;
    for (Control* c : TabSequence())
        if (c->TabStop && c->CanFocus()) {
            FocusControl(*c);
            return;
        }
}

std::vector<Control*> Form::TabSequence() const {
    std::vector<Control*> sequence = tabOrder_;
    auto add = [&](Control& c) {
        if (std::find(sequence.begin(), sequence.end(), &c) == sequence.end())
            sequence.push_back(&c);
    };
    if (layout_) layout_->ForEachControl(add);
    for (Component* component : components_)
        if (auto* c = dynamic_cast<Control*>(component)) add(*c);
    return sequence;
}

void Form::SelectNext(bool forward) {
    std::vector<Control*> candidates;
    for (Control* c : TabSequence())
        if ((c->TabStop && c->CanFocus()) || c == focused_) candidates.push_back(c);
    if (candidates.empty()) return;
    if (!forward) std::reverse(candidates.begin(), candidates.end());
    auto at = std::find(candidates.begin(), candidates.end(), focused_);
    std::size_t next =
        at == candidates.end()
            ? 0
            : (static_cast<std::size_t>(at - candidates.begin()) + 1) % candidates.size();
    FocusControl(*candidates[next]);
}

// ----- keys

void Form::PressKey(KeyStroke stroke) {
    KeyRouter::Route(*this, stroke, CharOfStroke(stroke));
}

void Form::TypeChar(char ch) {
    bool upper = std::isupper(static_cast<unsigned char>(ch)) != 0;
    KeyRouter::Route(*this, KeyStroke(KeyOfChar(ch), {.Shift = upper}), ch);
}

void Form::CommitPendingEdit() {
    if (focused_) focused_->CommitEdit();
}

namespace {
template <class Pick> Button* FindButton(const std::vector<Component*>& components, Pick pick) {
    for (Component* component : components)
        if (auto* b = dynamic_cast<Button*>(component); b && pick(*b) && b->Enabled && b->Showing())
            return b;
    return nullptr;
}
} // namespace

Button* Form::DefaultButton() const {
    return FindButton(components_, [](const Button& b) { return b.Default; });
}

Button* Form::CancelButton() const {
    return FindButton(components_, [](const Button& b) { return b.Cancel; });
}

} // namespace corvane::ui
