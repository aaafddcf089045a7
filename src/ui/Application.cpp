#include "ui/Application.h"

#include "core/Exception.h"
#include "ui/Form.h"
#include "ui/Host.h"
#include "ui/ScriptError.h"

#include <algorithm>

namespace corvane::ui {

Application::Application(Host& host, Dialogs& dialogs, DesktopServices& desktop)
    : host_(host), dialogs_(dialogs), desktop_(desktop) {}

Application::~Application() {
    // Later forms may use earlier ones (a filter form its list form): destroy them first.
    while (!owned_.empty())
        Destroy(owned_.end() - 1);
}

// ----- forms

bool Application::HasForm(std::string_view name) const {
    return formService_ && formService_->HasForm(name);
}

Form* Application::OpenForm(std::string_view name) {
    return formService_ ? formService_->OpenForm(name) : nullptr;
}

bool Application::CheckAccess(const std::string& right, const std::string& displayName) {
    return !formService_ || formService_->CheckAccess(right, displayName);
}

bool Application::ReportsOnA4() const {
    return formService_ && formService_->ReportsOnA4();
}

bool Application::PrintList(Form& list) {
    return formService_ && formService_->PrintList(list);
}

void Application::Register(Form& form) {
    if (FindForm(form.Name())) throw Exception("A form named '" + form.Name() + "' already exists");
    forms_.push_back(&form);
}

void Application::Unregister(Form& form) {
    forms_.erase(std::remove(forms_.begin(), forms_.end(), &form), forms_.end());
    pendingFree_.erase(std::remove(pendingFree_.begin(), pendingFree_.end(), &form),
                       pendingFree_.end());
    if (mainForm_ == &form) mainForm_ = nullptr;
}

void Application::Created(Form& form) {
    try {
        form.EnsureCreated();
    } catch (...) {
        // A form whose creation failed is not kept half made.
        Destroy(std::find_if(owned_.begin(), owned_.end(),
                             [&](const auto& f) { return f.get() == &form; }));
        throw;
    }
}

void Application::AdoptDataSets(Form& form, store::DataSetGroup& made, const void* begin,
                                std::size_t size) {
    form.dataSets_.AdoptWithin(made, begin, size);
}

void Application::Destroy(std::vector<std::unique_ptr<Form>>::iterator owned) {
    std::unique_ptr<Form> form = std::move(*owned);
    owned_.erase(owned);
    form->CloseDataSets();
}

Form* Application::FindForm(std::string_view name) const {
    auto it = std::find_if(forms_.begin(), forms_.end(),
                           [&](const Form* f) { return f->Name() == name; });
    return it == forms_.end() ? nullptr : *it;
}

Form& Application::GetForm(std::string_view name) const {
    if (Form* f = FindForm(name)) return *f;
    throw ScriptError("No form '" + std::string(name) + "'");
}

void Application::FreeForm(Form& form) {
    auto owned =
        std::find_if(owned_.begin(), owned_.end(), [&](const auto& f) { return f.get() == &form; });
    if (owned == owned_.end()) return; // a form made by its caller dies with its caller
    // A form that frees itself is still inside its own handler.
    if (depth_ > 0) {
        if (std::find(pendingFree_.begin(), pendingFree_.end(), &form) == pendingFree_.end())
            pendingFree_.push_back(&form);
        // Gone for everyone at once, so that the same event may make a new one of that name.
        forms_.erase(std::remove(forms_.begin(), forms_.end(), &form), forms_.end());
        return;
    }
    Destroy(owned);
}

void Application::FreePendingForms() {
    while (!pendingFree_.empty()) {
        Form* form = pendingFree_.back();
        pendingFree_.pop_back();
        FreeForm(*form);
    }
}

// ----- the message loop rule

void Application::Run(const std::function<void()>& handler) {
    struct Depth {
        explicit Depth(int& d) : depth(d) { ++depth; }
        ~Depth() { --depth; }
        int& depth;
    };
    {
        Depth inEvent(depth_);
        try {
            handler();
        } catch (const ScriptError&) {
            throw;
        } catch (const std::exception& e) {
            HandleException(e);
        }
    }
    if (depth_ == 0) FreePendingForms();
    if (depth_ == loopDepth_) host_.EventDone();
}

void Application::HandleException(const std::exception& e) {
    if (dynamic_cast<const EAbort*>(&e)) return;
    MessageDlg(e.what(), MsgType::Error, {mbOK});
}

// ----- messages

MsgButton Application::MessageDlg(const std::string& text, MsgType type, MsgButtons buttons,
                                  std::optional<MsgButton> defaultButton) {
    // A box needs a button to close it by.
    if (buttons.List().empty()) buttons = {mbOK};
    Message message{Title, text, type, buttons, defaultButton.value_or(buttons.List().front())};
    return dialogs_.Show(message);
}

void Application::ShowMessage(const std::string& text) {
    MessageDlg(text, MsgType::Plain, {mbOK});
}

bool Application::PassWarning(const std::string& text) {
    return dialogs_.Show(Message{"Warning", text, MsgType::Warning, {mbOK, mbCancel}, mbCancel}) ==
           mbOK;
}

// ----- wait cursor

void Application::BeginWait() {
    if (waitDepth_++ == 0) host_.SetWaitCursor(true);
}

void Application::EndWait() {
    if (waitDepth_ > 0 && --waitDepth_ == 0) host_.SetWaitCursor(false);
}

// ----- timers

TimerId Application::StartTimer(int intervalMs, bool repeating, std::function<void()> callback) {
    return desktop_.StartTimer(intervalMs, repeating,
                               [this, callback = std::move(callback)] { Run(callback); });
}

void Application::StopTimer(TimerId id) {
    desktop_.StopTimer(id);
}

void Application::ProcessMessages() {
    host_.ProcessMessages();
}

} // namespace corvane::ui
