#include "shell/patterns/OpenList.h"

#include "shell/patterns/ListForm.h"
#include "ui/Application.h"

namespace corvane::shell {

ui::Form* OpenAllowed(ui::Application& app, std::string_view form, std::string_view right) {
    if (!app.CheckAccess(std::string(right), {})) return nullptr;
    return app.OpenForm(form);
}

void OpenList(ui::Application& app, std::string_view form, std::string_view right) {
    if (ui::Form* opened = OpenAllowed(app, form, right)) opened->Show();
}

void OpenListOn(ui::Application& app, std::string_view form, std::string_view right,
                const std::string& filter, const std::string& openFilter) {
    ui::Form* opened = OpenAllowed(app, form, right);
    if (!opened) return;
    if (auto* list = dynamic_cast<ListForm*>(opened)) {
        const bool openOnly = list->OutstandingShown();
        list->PrepareMenuOpen(true);
        list->ShowOnly(openOnly ? openFilter : filter);
        list->ShowList();
    }
    opened->Show();
}

} // namespace corvane::shell
