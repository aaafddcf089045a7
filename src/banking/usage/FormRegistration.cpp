#include "banking/usage/FormRegistration.h"

#include "shell/lookups/TdmLookUps.h"
#include "shell/main/TfrmCorvane.h"

namespace corvane::banking {

shell::TdmLookUps& LookUpsFor(const shell::FormContext& ctx) {
    static shell::TdmLookUps standalone;
    return ctx.Main ? ctx.Main->dmLookUps : standalone;
}

shell::TdmLookUps* MainLookUps(const shell::FormContext& ctx) {
    return ctx.Main ? &ctx.Main->dmLookUps : nullptr;
}

std::function<void(std::string_view, std::string_view)> ListOpener(shell::FormRegistry& registry,
                                                                   shell::FormContext ctx) {
    return [&registry, ctx](std::string_view form, std::string_view right) {
        if (ctx.Main && !ctx.Main->CheckUserAccess(std::string(right))) return;
        const shell::FormFactory* factory = registry.Find(form);
        if (!factory) return;
        shell::FormContext context = ctx;
        (*factory)(context).Show();
    };
}

} // namespace corvane::banking
