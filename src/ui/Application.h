#pragma once

#include "store/DataSetGroup.h"
#include "ui/DesktopServices.h"
#include "ui/Dialogs.h"
#include "ui/FormService.h"

#include <exception>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::ui {

class Form;
class Host;

// The running program as its forms see it: the forms by component name, the one routine every
// user event runs through, message boxes, the wait cursor and timers. The host, the dialogs and
// the desktop services are ports, given by the desktop program or by a test.
class Application {
public:
    Application(Host& host, Dialogs& dialogs, DesktopServices& desktop);
    ~Application();
    Application(const Application&) = delete;
    Application& operator=(const Application&) = delete;

    // The title of message boxes.
    std::string Title = "Corvane";
    // Screen pixels per inch over 96, set by the host at start: every size the program sets in
    // code (column widths, window sizes) is multiplied by it, so that forms keep their look on
    // screens of higher density.
    double ScaleFactor = 1.0;

    Host& GetHost() const { return host_; }
    Dialogs& GetDialogs() const { return dialogs_; }
    DesktopServices& Desktop() const { return desktop_; }

    // ----- forms
    // A new form owned by the application, with the wait cursor on while it is made. The cursors
    // its constructors make are its own when they are its members (and so lie inside it); those
    // made elsewhere on the way, such as shared look-ups, are not.
    template <class T, class... Args> T& CreateForm(Args&&... args) {
        WaitGuard wait(*this);
        store::DataSetGroup made;
        std::unique_ptr<T> form;
        {
            store::DataSetGroup::Collecting collecting(made);
            form = std::make_unique<T>(*this, std::forward<Args>(args)...);
        }
        AdoptDataSets(*form, made, form.get(), sizeof(T));
        T& ref = *form;
        owned_.push_back(std::move(form));
        Created(ref);
        return ref;
    }
    // The one form of class T: the existing one, else a new one. Menus open forms this way so that
    // no form is there twice.
    template <class T, class... Args> T& SingleForm(Args&&... args) {
        for (Form* f : forms_)
            if (auto* t = dynamic_cast<T*>(f)) return *t;
        return CreateForm<T>(std::forward<Args>(args)...);
    }
    Form* FindForm(std::string_view name) const;
    // As FindForm, but a ScriptError when there is no such form.
    Form& GetForm(std::string_view name) const;
    // All forms, in the order they were made.
    const std::vector<Form*>& Forms() const { return forms_; }
    // Destroys a form the application owns, its data sets closed first; inside an event, once
    // the event is over.
    void FreeForm(Form& form);
    Form* MainForm() const { return mainForm_; }
    void SetMainForm(Form& form) { mainForm_ = &form; }

    // ----- the message loop rule
    // Runs what a user event triggers (a click, a key, a menu command, a timer). An exception
    // that escapes is shown with its message in an error box; an EAbort ends the handler
    // silently. A ScriptError passes through: it is the driver's mistake, not the program's.
    void Run(const std::function<void()>& handler);
    void HandleException(const std::exception& e);
    bool InEvent() const { return depth_ > 0; }

    // ----- messages; the box title is Title
    MsgButton MessageDlg(const std::string& text, MsgType type, MsgButtons buttons,
                         std::optional<MsgButton> defaultButton = std::nullopt);
    void ShowMessage(const std::string& text);
    // A warning the user may pass: titled "Warning", OK and Cancel with Cancel the default.
    // True when the user chose OK.
    bool PassWarning(const std::string& text);

    // ----- wait cursor; see WaitCursor
    int WaitDepth() const { return waitDepth_; }

    // ----- timers: the callback runs as a user event, through Run
    TimerId StartTimer(int intervalMs, bool repeating, std::function<void()> callback);
    void StopTimer(TimerId id);

    // Lets the host paint and take input during a long command.
    void ProcessMessages();

    // F1 on a form: the program shows the help of that form.
    std::function<void(Form& form)> OnHelp;

    // ----- the program's other forms, through its one form service (see FormService)
    void SetFormService(FormService* service) { formService_ = service; }
    bool HasForm(std::string_view name) const;
    // Null when there is no such form, or no service.
    Form* OpenForm(std::string_view name);
    // True without a service: a form on its own has no user to refuse.
    bool CheckAccess(const std::string& right, const std::string& displayName);
    bool PrintList(Form& list);
    // Letter without a service.
    bool ReportsOnA4() const;

private:
    friend class Form;
    friend class WaitCursor;
    struct WaitGuard {
        explicit WaitGuard(Application& app) : app_(app) { app_.BeginWait(); }
        ~WaitGuard() { app_.EndWait(); }
        Application& app_;
    };
    void Register(Form& form);
    void Unregister(Form& form);
    void Created(Form& form);
    static void AdoptDataSets(Form& form, store::DataSetGroup& made, const void* begin,
                              std::size_t size);
    void Destroy(std::vector<std::unique_ptr<Form>>::iterator owned);
    void BeginWait();
    void EndWait();
    void FreePendingForms();

    Host& host_;
    FormService* formService_ = nullptr;
    Dialogs& dialogs_;
    DesktopServices& desktop_;
    std::vector<Form*> forms_;
    std::vector<std::unique_ptr<Form>> owned_;
    std::vector<Form*> pendingFree_;
    Form* mainForm_ = nullptr;
    int depth_ = 0;     // events (and modal loops) under way
    int loopDepth_ = 0; // depth_ of the innermost message loop: its events end there
    int waitDepth_ = 0;
};

} // namespace corvane::ui
