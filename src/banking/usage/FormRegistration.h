#pragma once

#include "reports/run/PreviewReport.h"
#include "shell/main/FormRegistry.h"
#include "shell/patterns/ListForm.h"
#include "ui/Application.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::banking {

// The program's shared look-up cursors: the main form's, or for a form made on its own (tests,
// scripts without the main form) one set kept for the run.
shell::TdmLookUps& LookUpsFor(const shell::FormContext& ctx);
shell::TdmLookUps* MainLookUps(const shell::FormContext& ctx);

// A list's report shows the list's rows in its order and under its filter.
template <class Report>
void RegisterListReport(shell::FormRegistry& registry, std::string listName) {
    registry.RegisterListPrinter(std::move(listName), [](shell::ListForm& list) {
        auto report = std::make_unique<Report>(list.Db());
        report->FollowList(list);
        reports::PreviewReport(list.App(), std::move(report));
    });
}

// A small master's list and entry forms, which refresh the shared look-up cursors.
template <class List, class Entry>
void RegisterMaster(shell::FormRegistry& registry, std::string listName, std::string entryName) {
    registry.Register(std::move(listName), [](shell::FormContext& ctx) -> ui::Form& {
        auto& list = ctx.App.SingleForm<List>(ctx.Db);
        list.LookUps = MainLookUps(ctx);
        return list;
    });
    registry.Register(std::move(entryName), [](shell::FormContext& ctx) -> ui::Form& {
        auto& entry = ctx.App.SingleForm<Entry>(ctx.Db);
        entry.LookUps = MainLookUps(ctx);
        return entry;
    });
}

} // namespace corvane::banking
