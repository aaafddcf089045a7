#include "receivables/reports/TfrmARReports.h"

#include "core/DateEntry.h"
#include "core/Exception.h"
#include "reports/run/PreviewReport.h"
#include "reports/run/TrptBase.h"
#include "ui/Layout.h"

#include <charconv>

namespace corvane::receivables {

namespace {

std::optional<int> WholeNumber(const std::string& text) {
    int value = 0;
    auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

} // namespace

TfrmARReports::TfrmARReports(ui::Application& app, store::Database& db)
    : Form(app, "frmARReports"), tblCurrency(db, "Currency"), tblSalesman(db, "Salesman"),
      tblCustomer(db, "Customer"), db_(db) {
    using namespace ui;
    Caption = "AR Reports";
    tblCurrency.Name = "tblCurrency";
    tblSalesman.Name = "tblSalesman";
    tblCustomer.Name = "tblCustomer";
    tblCurrency.Open();
    tblSalesman.Open();
    tblCustomer.Open();
    tblCustomer.SetIndexName("CustomerName1");
    for (const char* name : kARReportNames)
        lstReports.Add(name);
    lstReports.SetItemIndex(0);
    lstReports.OnDblClick = [this] { ShowOptions(); };
    editAsOfDate.SetText(DateToStr(Date::Today()));
    editMinOwing.AlignRight = true;

    SetLayout(Column{
        FormRow{lblReports, lstReports},
        FormRow{lblAsOfDate, editAsOfDate},
        FormRow{lblDateFrom, editDateFrom},
        FormRow{lblPeriod, editPeriod},
        FormRow{lblYear, editYear},
        FormRow{lblDateTo, editDateTo},
        FormRow{lblCurrency, cboCurrency},
        FormRow{lblSalesman, cboSalesman},
        FormRow{lblCustomer, cboCustomer},
        FormRow{lblMinOwing, editMinOwing},
        FormRow{lblMinDaysOld, editMinDaysOld},
        ButtonRow{btnBack, btnNext, btnPreview, btnCancel},
    });
    btnNext.Default = true;
    btnCancel.Cancel = true;
    btnBack.OnClick = [this] { ShowReports(); };
    btnNext.OnClick = [this] { ShowOptions(); };
    btnPreview.OnClick = [this] { Preview(); };
    btnCancel.OnClick = [this] { Close(); };
    OnClose = [](ui::CloseAction& action) { action = ui::CloseAction::Free; };
    ShowStep(1);
}

ARReportKind TfrmARReports::Kind() const {
    return static_cast<ARReportKind>(std::max(lstReports.ItemIndex(), 0));
}

void TfrmARReports::ShowReports() {
    ShowStep(1);
}

void TfrmARReports::ShowOptions() {
    ShowStep(2);
}

void TfrmARReports::ShowStep(int step) {
    step_ = step;
    const bool options = step == 2;
    lblReports.Visible = lstReports.Visible = !options;
    const ARReportChoices c = ChoicesOf(Kind());
    auto show = [options](ui::Label& label, ui::Control& control, bool offered) {
        label.Visible = control.Visible = options && offered;
    };
    show(lblAsOfDate, editAsOfDate, c.AsOf);
    show(lblDateFrom, editDateFrom, c.DateFrom);
    show(lblPeriod, editPeriod, c.PeriodYearDateTo);
    show(lblYear, editYear, c.PeriodYearDateTo);
    show(lblDateTo, editDateTo, c.PeriodYearDateTo);
    show(lblCurrency, cboCurrency, true);
    show(lblSalesman, cboSalesman, c.Salesman);
    show(lblCustomer, cboCustomer, true);
    show(lblMinOwing, editMinOwing, c.Thresholds);
    show(lblMinDaysOld, editMinDaysOld, c.Thresholds);
    btnBack.Enabled = options;
    btnNext.Enabled = !options;
    btnPreview.Enabled = options;
    btnNext.Default = !options;
    btnPreview.Default = options;
    if (options) {
        Caption = std::string("AR Reports - ") + kARReportNames[static_cast<int>(Kind())];
        FocusControl(c.AsOf       ? static_cast<ui::Control&>(editAsOfDate)
                     : c.DateFrom ? static_cast<ui::Control&>(editDateFrom)
                                  : static_cast<ui::Control&>(cboCurrency));
    } else {
        Caption = "AR Reports";
        FocusControl(lstReports);
    }
}

ARReportOptions TfrmARReports::ReadOptions() {
    const ARReportChoices c = ChoicesOf(Kind());
    ARReportOptions o;
    auto refuse = [this](ui::Control& control, const std::string& message) {
        FocusControl(control);
        throw Exception(message);
    };
    auto date = [&](ui::DateEdit& edit, bool offered) -> std::optional<Date> {
        if (!offered || edit.Text().empty()) return std::nullopt;
        try {
            return ParseEnteredDate(edit.Text());
        } catch (const Exception& e) {
            refuse(edit, e.what());
        }
        return std::nullopt;
    };
    if (c.AsOf) {
        if (editAsOfDate.Text().empty()) refuse(editAsOfDate, "Field 'As of' must have a value");
        o.AsOf = *date(editAsOfDate, true);
    }
    o.DateFrom = date(editDateFrom, c.DateFrom);
    o.DateTo = date(editDateTo, c.PeriodYearDateTo);
    auto id = [](const ui::DBLookupComboBox& combo) -> std::optional<std::int64_t> {
        const store::Value key = combo.KeyValue();
        if (key.IsNull()) return std::nullopt;
        return key.Int();
    };
    o.CurrencyID = id(cboCurrency);
    if (c.Salesman) o.SalesmanID = id(cboSalesman);
    o.CustomerID = id(cboCustomer);
    if (c.Thresholds) {
        if (!editMinOwing.Text().empty()) {
            auto amount = Money::Parse(editMinOwing.Text());
            auto refusal = CheckMinOwing(amount ? *amount : Money::FromWhole(-1));
            if (refusal) refuse(editMinOwing, *refusal);
            o.Thresholds.MinOwing = *amount;
        }
        if (!editMinDaysOld.Text().empty()) {
            auto days = WholeNumber(editMinDaysOld.Text());
            auto refusal = CheckMinDaysOld(days ? *days : -1);
            if (refusal) refuse(editMinDaysOld, *refusal);
            o.Thresholds.MinDaysOld = *days;
        }
    }
    if (c.PeriodYearDateTo) {
        if (!editPeriod.Text().empty()) {
            auto period = WholeNumber(editPeriod.Text());
            if (auto refusal = CheckPeriod(period ? *period : 0)) refuse(editPeriod, *refusal);
            o.Period = *period;
        }
        if (!editYear.Text().empty()) {
            auto year = WholeNumber(editYear.Text());
            if (!year || *year < 1900 || *year > 9999)
                refuse(editYear, "'" + editYear.Text() + "' is not a valid year");
            o.Year = *year;
        }
        if (o.Period && !o.Year) refuse(editYear, "Field 'Year' must have a value");
    }
    return o;
}

void TfrmARReports::Preview() {
    ARReportOptions options = ReadOptions();
    reports::PreviewReport(App(), MakeARReport(Kind(), db_, std::move(options)));
}

} // namespace corvane::receivables
