#include "timebilling/forms/TfrmARInvoiceNew.h"

#include "core/DateEntry.h"
#include "core/Exception.h"
#include "core/Text.h"
#include "ledger/domain/PeriodRules.h"
#include "store/EngineError.h"
#include "timebilling/domain/AutoCreatePeriod.h"
#include "timebilling/domain/TimeTexts.h"
#include "timebilling/forms/CustomerChoice.h"
#include "ui/Application.h"
#include "ui/Layout.h"

#include <charconv>

namespace corvane::timebilling {

namespace text = time_text;

namespace {

std::string TwoDigits(int year) {
    const int yy = year % 100;
    return (yy < 10 ? "0" : "") + std::to_string(yy);
}

} // namespace

TfrmARInvoiceNew::TfrmARInvoiceNew(ui::Application& app, store::Database& db)
    : Form(app, "frmARInvoiceNew"), tblCustomer(db, "Customer"), tblJob(db, "Job"),
      rgpInvoice(*this, "rgpInvoice", "Invoice", {text::ManualInvoice, text::AutoCreateFromTime}),
      cboCustomer(*this, "cboCustomer", tblCustomer, "CustomerID", "CustomerName;CustomerNo"),
      cboJob(*this, "cboJob", tblJob, "JobID", "JobName"), db_(db) {
    using namespace ui;
    Caption = "New Invoice(s) Selection";
    tblCustomer.SetIndexName("CustomerName1");
    tblJob.SetIndexName("JobName1");
    tblCustomer.Open();
    tblJob.Open();
    SetLayout(Column{
        rgpInvoice,
        Group{"AutoCreate",
              {FormRow{"Customer", Row{cboCustomer, btnCustomer}}, FormRow{"Job", cboJob},
               FormRow{"Cut-off date", editCutOffDate}, FormRow{"Invoice date", editInvoiceDate},
               FormRow{"Period", Row{editPeriod, editYear, Stretch{}}}}},
        ButtonRow{btnOK, btnCancel},
    });
    btnOK.Default = true;
    btnCancel.Cancel = true;
    editPeriod.MaxLength = 2;
    editYear.MaxLength = 2;

    // AutoCreate is the usual choice; the dates start at today and the period as a new
    // invoice's.
    const Date today = Date::Today();
    const ledger::Period period = ledger::DefaultPeriod(ledger::CompanyPeriods::Read(db), today);
    rgpInvoice.SetItemIndex(1);
    editCutOffDate.SetText(DateToStr(today));
    editInvoiceDate.SetText(DateToStr(today));
    editPeriod.SetText(std::to_string(period.Number));
    editYear.SetText(TwoDigits(period.Year));
    NarrowJobs();

    rgpInvoice.OnClick = [this] {
        const bool autoCreate = !ManualChosen();
        for (Control* c : std::initializer_list<Control*>{&cboCustomer, &cboJob, &editCutOffDate,
                                                          &editInvoiceDate, &editPeriod, &editYear})
            c->Enabled = autoCreate;
    };
    ConnectCustomerSearch(btnCustomer, cboCustomer, db);
    cboCustomer.OnChange = [this] {
        cboJob.SetKeyValue({});
        NarrowJobs();
    };
    OnShow = [this] { opening_ = Current(); };
    btnOK.OnClick = [this] { Accept(); };
    btnCancel.OnClick = [this] {
        Restore(opening_);
        SetModalResult(mrCancel);
    };
}

TfrmARInvoiceNew::Choices TfrmARInvoiceNew::Current() const {
    return {rgpInvoice.ItemIndex(),
            cboCustomer.KeyValue(),
            cboJob.KeyValue(),
            {editCutOffDate.Text(), editInvoiceDate.Text(), editPeriod.Text(), editYear.Text()}};
}

void TfrmARInvoiceNew::Restore(const Choices& choices) {
    rgpInvoice.SetItemIndex(choices.Invoice);
    cboCustomer.SetKeyValue(choices.Customer);
    cboJob.SetKeyValue(choices.Job);
    editCutOffDate.SetText(choices.Texts[0]);
    editInvoiceDate.SetText(choices.Texts[1]);
    editPeriod.SetText(choices.Texts[2]);
    editYear.SetText(choices.Texts[3]);
}

void TfrmARInvoiceNew::NarrowJobs() {
    NarrowJobsToCustomer(tblJob, cboCustomer.KeyValue());
}

// The request the fields make, after the period checks in their order; nothing when a check
// refused or the user turned back at the warning.
std::optional<AutoCreateRequest> TfrmARInvoiceNew::ReadRequest() {
    AutoCreateRequest request;
    std::optional<int> year, period;
    // Kept as strings: the boxes hand out copies, and a view of one would outlive it.
    const std::string yearText(TrimBlanks(editYear.Text()));
    if (!yearText.empty()) {
        editYear.SetFocus();
        year = ledger::TwoDigitYear(yearText, text::YearInvalid);
    }
    const std::string periodText(TrimBlanks(editPeriod.Text()));
    if (!periodText.empty()) {
        int number = 0;
        const auto [end, error] =
            std::from_chars(periodText.data(), periodText.data() + periodText.size(), number);
        if (error != std::errc() || end != periodText.data() + periodText.size() || number < 1 ||
            number > 12) {
            editPeriod.SetFocus();
            throw Exception(text::PeriodOutOfRange);
        }
        period = number;
    }
    const ledger::CompanyPeriods company = ledger::CompanyPeriods::Read(db_);
    const ledger::PeriodVerdict verdict = JudgeAutoCreatePeriod(company, year, period);
    if (verdict.Verdict == ledger::PeriodVerdict::Kind::Refused) {
        // The year's refusals come first; once the year stands, what is wrong is the period.
        const bool yearStands = company.FiscalYear != 0 && year && *year >= company.FiscalYear;
        (yearStands ? editPeriod : editYear).SetFocus();
        throw Exception(verdict.Message);
    }
    if (verdict.Verdict == ledger::PeriodVerdict::Kind::Warning &&
        App().MessageDlg(verdict.Message, ui::MsgType::Warning, {ui::mbOK, ui::mbCancel}) !=
            ui::mbOK)
        return std::nullopt;
    request.GLYear = *year;
    request.GLPeriod = *period;
    for (auto [edit, date, label] :
         {std::tuple{&editCutOffDate, &request.CutOff, "Cut-off Date"},
          std::tuple{&editInvoiceDate, &request.InvoiceDate, "Invoice Date"}}) {
        const std::string typed(TrimBlanks(edit->Text()));
        edit->SetFocus();
        if (typed.empty()) throw Exception(text::MustHaveValue(label));
        *date = ParseEnteredDate(typed);
    }
    if (const store::Value c = cboCustomer.KeyValue(); !c.IsNull()) request.CustomerID = c.Int();
    if (const store::Value j = cboJob.KeyValue(); !j.IsNull()) request.JobID = j.Int();
    return request;
}

void TfrmARInvoiceNew::Accept() {
    if (ManualChosen()) {
        SetModalResult(ui::mrOK);
        return;
    }
    const std::optional<AutoCreateRequest> request = ReadRequest();
    if (!request) return;
    // Time being typed would be missed by the run, or billed under the user's hands.
    if (ui::Form* sheet = App().FindForm("frmTimeSheet"); sheet && sheet->Visible())
        throw Exception(text::TimeSheetFormOpen);
    if (App().MessageDlg(text::AutoCreateQuestion(request->GLPeriod, request->GLYear),
                         ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) != ui::mbYes)
        return;
    bool gaveUp = false;
    const RetryQuestion askRetry = [this, &gaveUp](const std::string& message) {
        gaveUp = App().MessageDlg(message, ui::MsgType::Error, {ui::mbRetry, ui::mbCancel}) !=
                 ui::mbRetry;
        return !gaveUp;
    };
    AutoCreateRun run(db_);
    run.OnInvoiceWritten = OnInvoiceWritten;
    AutoCreateResult result;
    try {
        result = run.Run(*request, askRetry);
    } catch (const store::EngineError&) {
        // The user chose Cancel at a lock: nothing was made, and nothing more is said.
        if (gaveUp) Abort();
        throw;
    }
    if (result.NoTime) {
        SetModalResult(ui::mrCancel);
        return;
    }
    App().MessageDlg(text::InvoicesCreated(result.InvoicesMade), ui::MsgType::Information,
                     {ui::mbOK});
    SetModalResult(ui::mrOK);
}

} // namespace corvane::timebilling
