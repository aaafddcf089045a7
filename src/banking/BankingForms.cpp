#include "banking/BankingForms.h"

#include "banking/currencies/TfrmCurrencies.h"
#include "banking/currencies/TfrmCurrency.h"
#include "shell/main/TfrmCorvane.h"
#include "ui/Application.h"

namespace corvane::banking {

namespace {

shell::TdmLookUps* LookUpsOf(const shell::FormContext& ctx) {
    return ctx.Main ? &ctx.Main->dmLookUps : nullptr;
}

} // namespace

void RegisterBankingForms(shell::FormRegistry& registry) {
    registry.Register("frmCurrencies", [](shell::FormContext& ctx) -> ui::Form& {
        auto& list = ctx.App.SingleForm<TfrmCurrencies>(ctx.Db);
        list.LookUps = LookUpsOf(ctx);
        return list;
    });
    registry.Register("frmCurrency", [](shell::FormContext& ctx) -> ui::Form& {
        auto& entry = ctx.App.SingleForm<TfrmCurrency>(ctx.Db);
        entry.LookUps = LookUpsOf(ctx);
        return entry;
    });
}

} // namespace corvane::banking
