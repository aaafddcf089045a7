#include "cli/demo/DemoForms.h"

#include "cli/demo/DemoUsersForm.h"
#include "shell/main/FormRegistry.h"
#include "ui/Application.h"

namespace corvane::cli::demo {

void RegisterDemoForms(shell::FormRegistry& registry) {
    registry.Register("frmDemoUsers", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<DemoUsersForm>(ctx.Db);
    });
}

} // namespace corvane::cli::demo
