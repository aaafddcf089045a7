#include "cli/demo/DemoForms.h"

#include "cli/FormRegistry.h"
#include "cli/demo/DemoUsersForm.h"
#include "ui/Application.h"

namespace corvane::cli::demo {

void RegisterDemoForms(FormRegistry& registry) {
    registry.Register("frmDemoUsers", [](FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<DemoUsersForm>(ctx.Db);
    });
    registry.RegisterMenu("Security, Users (demo)", "frmDemoUsers");
}

} // namespace corvane::cli::demo
