#include "banking/BankingForms.h"

#include "banking/banks/TfrmBank.h"
#include "banking/banks/TfrmBankBook.h"
#include "banking/banks/TfrmBanks.h"
#include "banking/reports/MasterListReport.h"
#include "banking/usage/FormRegistration.h"
#include "reports/run/ReportRegistry.h"

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
    registry.Register("frmBanks", [](shell::FormContext& ctx) -> ui::Form& {
        auto& list = ctx.App.SingleForm<TfrmBanks>(ctx.Db, LookUpsFor(ctx));
        list.LookUps = LookUpsOf(ctx);
        return list;
    });
    registry.Register("frmBank", [](shell::FormContext& ctx) -> ui::Form& {
        auto& entry = ctx.App.SingleForm<TfrmBank>(ctx.Db, LookUpsFor(ctx));
        entry.LookUps = LookUpsOf(ctx);
        return entry;
    });
    registry.Register("frmBankBook", [](shell::FormContext& ctx) -> ui::Form& {
        auto& book = ctx.App.SingleForm<TfrmBankBook>(ctx.Db, LookUpsFor(ctx));
        book.SetDefaultBankID(0);
        return book;
    });
    RegisterListReport<TrptBanks>(registry, "frmBanks");
}

void RegisterBankingReports(reports::ReportRegistry& registry) {
    registry.Register(
        "Banks", "The banks with their currency and account", [](store::Database& db, const auto&) {
            return std::unique_ptr<reports::TrptBase>(std::make_unique<TrptBanks>(db));
        });
}

} // namespace corvane::banking
