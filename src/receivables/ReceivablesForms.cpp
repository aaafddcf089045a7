#include "receivables/ReceivablesForms.h"

#include "banking/usage/FormRegistration.h"

#include "receivables/customers/TfrmCContact.h"
#include "receivables/customers/TfrmCustomer.h"
#include "receivables/customers/TfrmCustomerSearch.h"
#include "receivables/customers/TfrmCustomers.h"
#include "receivables/masters/TfrmCusType.h"
#include "receivables/masters/TfrmCusTypes.h"
#include "receivables/masters/TfrmSalesman.h"
#include "receivables/masters/TfrmSalesmen.h"
#include "receivables/masters/TfrmTax.h"
#include "receivables/masters/TfrmTaxes.h"
#include "receivables/payments/forms/PaymentForms.h"
#include "receivables/reports/ARReports.h"
#include "receivables/reports/TfrmARReports.h"
#include "receivables/reports/TrptARPayments.h"
#include "receivables/reports/TrptCustomers.h"
#include "receivables/reports/TrptTaxes.h"
#include "reports/run/PreviewReport.h"
#include "reports/run/ReportRegistry.h"
#include "shell/lookups/TdmLookUps.h"
#include "shell/main/FormRegistry.h"
#include "shell/main/TfrmCorvane.h"
#include "ui/Application.h"

namespace corvane::receivables {

using banking::LookUpsFor;
using banking::RegisterListReport;
using banking::RegisterMaster;

void RegisterReceivablesForms(shell::FormRegistry& registry) {
    RegisterMaster<TfrmTaxes, TfrmTax>(registry, "frmTaxes", "frmTax");
    RegisterMaster<TfrmCusTypes, TfrmCusType>(registry, "frmCusTypes", "frmCusType");
    RegisterMaster<TfrmSalesmen, TfrmSalesman>(registry, "frmSalesmen", "frmSalesman");
    registry.Register("frmCustomers", [](shell::FormContext& ctx) -> ui::Form& {
        auto& list = ctx.App.SingleForm<TfrmCustomers>(ctx.Db, LookUpsFor(ctx));
        list.MapService = ctx.Main ? ctx.Main->Settings().ReadString("General", "MapService",
                                                                     "https://www.google.com")
                                   : "https://www.google.com";
        return list;
    });
    registry.Register("frmCustomer", [](shell::FormContext& ctx) -> ui::Form& {
        auto& entry = ctx.App.SingleForm<TfrmCustomer>(ctx.Db, LookUpsFor(ctx));
        return entry;
    });
    registry.Register("frmCContact", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmCContact>(ctx.Db);
    });
    registry.Register("frmCustomerSearch", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmCustomerSearch>(ctx.Db);
    });
    registry.Register("frmARReports", [](shell::FormContext& ctx) -> ui::Form& {
        return ctx.App.SingleForm<TfrmARReports>(ctx.Db);
    });
    RegisterPaymentForms(registry);
    RegisterListReport<TrptTaxes>(registry, "frmTaxes");
    RegisterListReport<TrptCustomers>(registry, "frmCustomers");
    RegisterListReport<TrptCusTypes>(registry, "frmCusTypes");
    RegisterListReport<TrptSalesmen>(registry, "frmSalesmen");
    registry.RegisterListPrinter("frmARPayments", [](shell::ListForm& list) {
        const bool checkWording = list.App().Desktop().CountryName() == "United States";
        auto report = std::make_unique<TrptARPayments>(list.Db(), checkWording);
        report->FollowList(list);
        reports::PreviewReport(list.App(), std::move(report));
    });
}

void RegisterReceivablesReports(reports::ReportRegistry& registry) {
    RegisterARReports(registry);
    registry.Register("Taxes", "The sales taxes", [](store::Database& db, const auto&) {
        return std::unique_ptr<reports::TrptBase>(std::make_unique<TrptTaxes>(db));
    });
    registry.Register("Customers", "The customers", [](store::Database& db, const auto&) {
        return std::unique_ptr<reports::TrptBase>(std::make_unique<TrptCustomers>(db));
    });
    registry.Register("CusTypes", "The customer types", [](store::Database& db, const auto&) {
        return std::unique_ptr<reports::TrptBase>(std::make_unique<TrptCusTypes>(db));
    });
    registry.Register("Salesmen", "The salesmen", [](store::Database& db, const auto&) {
        return std::unique_ptr<reports::TrptBase>(std::make_unique<TrptSalesmen>(db));
    });
}

} // namespace corvane::receivables
