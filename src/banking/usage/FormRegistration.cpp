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

FilteredListOpener FilteredOpener(shell::FormRegistry& registry, shell::FormContext ctx) {
    return [&registry, ctx](std::string_view form, std::string_view right,
                            const std::string& filter, const std::string& openFilter) {
        if (ctx.Main && !ctx.Main->CheckUserAccess(std::string(right))) return;
        const shell::FormFactory* factory = registry.Find(form);
        if (!factory) return;
        shell::FormContext context = ctx;
        ui::Form& opened = (*factory)(context);
        if (auto* list = dynamic_cast<shell::ListForm*>(&opened)) {
            const bool openOnly = list->OutstandingShown();
            list->PrepareMenuOpen(true);
            list->MainDataSet().SetFilter(openOnly ? openFilter : filter);
            list->MainDataSet().SetFiltered(true);
            list->mnuFilter.SetChecked(true);
            list->ShowList();
        }
        opened.Show();
    };
}

} // namespace corvane::banking
