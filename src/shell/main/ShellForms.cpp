#include "shell/main/ShellForms.h"

#include "shell/main/FormRegistry.h"
#include "shell/users/TfrmUser.h"
#include "shell/users/TfrmUsers.h"
#include "ui/Application.h"

namespace corvane::shell {

void RegisterShellForms(FormRegistry& registry) {
    // SingleForm, as the shell itself opens them: the list opens its entry form the same way, so
    // a script that opened frmUser and then the list's New works on one form.
    registry.Register("frmUsers", [](FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmUsers>(ctx.Db);
    });
    registry.Register("frmUser", [](FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmUser>(ctx.Db);
    });
}

} // namespace corvane::shell
