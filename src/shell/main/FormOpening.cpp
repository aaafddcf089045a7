#include "shell/main/FormOpening.h"

#include "shell/patterns/ListForm.h"
#include "ui/Application.h"
#include "ui/Form.h"

namespace corvane::shell {

namespace {

// Restores the form, runs its show again when it is up already (so it reads afresh) and shows it.
void ShowPlain(ui::Form& form) {
    if (form.State == ui::WindowState::Minimized) form.State = ui::WindowState::Normal;
    if (form.Visible() && form.OnShow) form.OnShow();
    form.Show();
}

} // namespace

void OpenFormFromMenu(const MainMenuEntry& entry, ui::Form* existing,
                      const std::function<ui::Form&()>& make) {
    switch (entry.Open) {
    case OpenKind::Plain:
        ShowPlain(make());
        return;
    case OpenKind::Show:
        make().Show();
        return;
    case OpenKind::Modal: {
        ui::Form& form = make();
        form.ShowModal();
        form.App().FreeForm(form);
        return;
    }
    case OpenKind::List:
    case OpenKind::ListNoRefresh:
    case OpenKind::Outstanding:
    case OpenKind::PlainQueryList: {
        auto* list = dynamic_cast<ListForm*>(existing);
        if (entry.Open == OpenKind::Outstanding && entry.KeepOutstanding && list &&
            list->OutstandingShown() && !list->mnuFilter.Checked()) {
            ShowPlain(*list);
            return;
        }
        if (list) list->PrepareMenuOpen(entry.Open == OpenKind::List);
        ui::Form& form = make();
        if (!list) list = dynamic_cast<ListForm*>(&form);
        if (list && entry.Open == OpenKind::Outstanding)
            list->ShowOutstanding(std::string(entry.Filter));
        ShowPlain(form);
        return;
    }
    case OpenKind::FilterFirst: {
        ui::Form& form = make();
        if (form.Visible()) form.Close();
        auto* list = dynamic_cast<ListForm*>(&form);
        if (!list) {
            ShowPlain(form);
            return;
        }
        list->RunFilterFirst();
        return;
    }
    }
}

} // namespace corvane::shell
