#pragma once

#include "store/DataSetGroup.h"
#include "ui/Keys.h"
#include "ui/Layout.h"
#include "ui/ModalResult.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::ui {

class Application;
class Button;
class Component;
class Control;
struct ScreenRect;

enum class CloseAction { None, Hide, Free };
enum class WindowState { Normal, Minimized, Maximized };

// A window of the program and the home of its components. A form is a class of its own: its
// cursors and controls are members (cursors first, since controls bind to them), its constructor
// sets the captions, the layout and the handlers, and it is written once for the desktop, the
// headless runner and the tests alike:
//
//   class VendorForm : public ui::Form {
//   public:
//       VendorForm(ui::Application& app, store::Database& db)
//           : Form(app, "frmVendor"), tblVendor(db, "Vendor") {
//           tblVendor.Open();
//           SetLayout(Column{FormRow{"Vendor No", editVendorNo}, ButtonRow{btnOK, btnCancel}});
//           btnOK.OnClick = [this] { tblVendor.Post(); Close(); };
//       }
//       store::Table tblVendor;
//       ui::DBEdit editVendorNo{*this, "editVendorNo", tblVendor, "VendorNo"};
//       ui::Button btnOK{*this, "btnOK", "OK"}, btnCancel{*this, "btnCancel", "Cancel"};
//   };
class Form {
public:
    Form(Application& app, std::string name);
    virtual ~Form();
    Form(const Form&) = delete;
    Form& operator=(const Form&) = delete;

    const std::string& Name() const { return name_; }
    Application& App() const { return app_; }

    std::string Caption;
    // OnKeyDown and OnKeyPress of the form see each key before the focused control does.
    bool KeyPreview = false;
    // Enter moves to the next control instead of pressing the Default button, as on entry forms;
    // a memo and a dropped-down look-up combo keep their Enter.
    bool EnterMovesFocus = false;
    // The window stays above the program's other windows (a small list kept at hand).
    bool StayOnTop = false;
    // Geometry in pixels; zero or negative leaves it to the host.
    int Left = -1, Top = -1, ClientWidth = 0, ClientHeight = 0;
    WindowState State = WindowState::Normal;
    // Centres the form (by its client size) on the control, or on the screen when the host cannot
    // tell where the control is, and keeps it on the screen.
    void CentreOn(const Control& control);
    void CentreOn(const ScreenRect& area);
    // Moves the form back onto the host's work area; a form larger than the screen keeps its
    // left and top edges visible.
    void KeepOnScreen();

    // ----- showing and closing
    void Show();
    // Returns how the form was closed. The form is hidden, not destroyed, afterwards.
    ui::ModalResult ShowModal();
    // Asks OnCloseQuery, then OnClose; a modal form closes with mrCancel unless a result is set.
    void Close();
    // True when OnCloseQuery lets the form close.
    bool CloseQuery();
    void Hide();
    bool Visible() const { return visible_; }
    bool IsModal() const { return modal_; }
    ui::ModalResult ModalResult() const { return modalResult_; }
    // A result other than mrNone closes a modal form (unless OnCloseQuery refuses).
    void SetModalResult(ui::ModalResult result);

    std::function<void()> OnCreate, OnShow, OnHide;
    std::function<void(bool& canClose)> OnCloseQuery;
    std::function<void(CloseAction& action)> OnClose;
    std::function<void(Key& key, Modifiers mods)> OnKeyDown;
    std::function<void(char& ch)> OnKeyPress;

    // ----- data sets
    // Closes the form's cursors while the whole form still stands: a record in edit or insert
    // is cancelled and the form's handlers see it. The application does this before it destroys
    // a form it made, since a derived form's handlers on a cursor of its base would otherwise run
    // from the base's destructor, after the derived members are gone.
    void CloseDataSets() { dataSets_.CloseAll(); }

    // ----- layout
    void SetLayout(LayoutItem root);
    const LayoutItem* Layout() const { return layout_.get(); }

    // ----- components by name
    Component* FindComponent(std::string_view name) const;
    // The component, or a ScriptError naming the form when there is none of that name and kind.
    template <class T = Component> T& Get(std::string_view name) const {
        Component& c = Require(name);
        if (auto* t = dynamic_cast<T*>(&c)) return *t;
        WrongKind(c);
    }
    const std::vector<Component*>& Components() const { return components_; }

    // ----- focus and keys
    Control* ActiveControl() const { return focused_; }
    // Moves the focus; see Control::SetFocus.
    void FocusControl(Control& control);
    // To the next (or previous) control of the tab order that can take the focus.
    void SelectNext(bool forward = true);
    // The controls in tab order: as SetTabOrder gave them, else as the layout places them, then
    // those outside the layout in the order they were made.
    std::vector<Control*> TabSequence() const;
    void SetTabOrder(std::vector<Control*> order) { tabOrder_ = std::move(order); }
    // A key as a person presses it, into the focused control.
    void PressKey(KeyStroke stroke);
    // A character as a person types it, into the focused control.
    void TypeChar(char ch);
    // The focused control writes what the user typed, before a command acts on the record.
    void CommitPendingEdit();
    // The enabled, showing button that Enter (Default) or Escape (Cancel) presses.
    Button* DefaultButton() const;
    Button* CancelButton() const;

private:
    friend class Application;
    friend class Component;
    void Register(Component& component);
    void Unregister(Component& component);
    void EnsureCreated();
    void FocusFirst();
    void CloseWithResult();
    Component& Require(std::string_view name) const;
    [[noreturn]] void WrongKind(const Component& component) const;

    Application& app_;
    std::string name_;
    // The cursors among the form's members; see Application::CreateForm.
    store::DataSetGroup dataSets_;
    std::vector<Component*> components_;
    std::unique_ptr<LayoutItem> layout_;
    std::vector<Control*> tabOrder_;
    Control* focused_ = nullptr;
    bool created_ = false;
    bool visible_ = false;
    bool modal_ = false;
    ui::ModalResult modalResult_ = mrNone;
};

} // namespace corvane::ui
