#include "company/CompanyForms.h"

#include "company/sample/SampleCompany.h"
#include "company/wizard/TfrmGettingStarted.h"
#include "shell/main/TfrmCorvane.h"
#include "ui/Application.h"

namespace corvane::company {

void RegisterCompanyForms(shell::FormRegistry& registry) {
    registry.Register("frmGettingStarted", [](shell::FormContext& ctx) -> ui::Form& {
        auto& wizard = ctx.App.CreateForm<TfrmGettingStarted>(ctx.Db);
        // The main form hands the wizard the name from the company's shortcut through its hook,
        // which it calls right after this factory.
        if (ctx.Main && !ctx.Main->GettingStartedPreset)
            ctx.Main->GettingStartedPreset = [](ui::Form& form, const std::string& name) {
                if (auto* started = dynamic_cast<TfrmGettingStarted*>(&form))
                    started->PresetCompanyName(name);
            };
        return wizard;
    });
    registry.SampleDataGenerator = [](store::Database& db) { GenerateSampleCompany(db); };
}

} // namespace corvane::company
