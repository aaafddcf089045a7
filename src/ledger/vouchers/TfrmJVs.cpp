#include "ledger/vouchers/TfrmJVs.h"

#include "core/Exception.h"
#include "ledger/domain/Voucher.h"
#include "ledger/domain/VoucherTexts.h"
#include "ledger/inquiry/TfrmGLHistory.h"
#include "ledger/inquiry/TfrmGLHistoryFilter.h"
#include "ledger/inquiry/VoucherLabels.h"
#include "ledger/reports/ListView.h"
#include "ledger/reports/TrptJV.h"
#include "ledger/reports/TrptJVs.h"
#include "ledger/vouchers/TfrmJV.h"
#include "ledger/vouchers/TfrmJVsFilter.h"
#include "ledger/vouchers/TfrmJVsFind.h"
#include "reports/run/PreviewReport.h"
#include "store/Query.h"
#include "ui/Application.h"

namespace corvane::ledger {

namespace text = voucher_text;

TfrmJVs::TfrmJVs(ui::Application& app, store::Database& db)
    : ListForm(app, "frmJVs", "Journal Vouchers", db, "JV", "tblJV", "JVID"),
      mnuSortPeriod(
          AddSortEntry("mnuSortPeriod", "&Period ascending", "Periodppyyyy", "PeriodJVNumber")),
      mnuSortPeriodDesc(AddSortEntry("mnuSortPeriodDesc", "Period &descending", "Periodppyyyy",
                                     "PeriodJVNumberDESC")),
      mnuSortJVNumber(AddSortEntry("mnuSortJVNumber", "&JV number", "JVNumber", "JVNumber")),
      mnuSortPeriodDate(AddSortEntry("mnuSortPeriodDate", "Period and date &ascending", "TransDate",
                                     "PeriodDateJVNumber")),
      mnuSortPeriodDateDesc(AddSortEntry("mnuSortPeriodDateDesc", "Period and date d&escending",
                                         "TransDate", "PeriodDateJVNumberDESC")),
      mnuSortDescription(AddSortEntry("mnuSortDescription", "De&scription", "TransDescription",
                                      "Description_PeriodJVNumberDESC")) {
    AddListFields();
    grdList.AddColumn("Periodppyyyy", "Period", 64);
    grdList.AddColumn("JVNumber", "JV no.", 64);
    grdList.AddColumn("TransDate", "Date", 72);
    grdList.AddColumn("TransDescription", "Description", 240);
    grdList.AddColumn("SourceType", "Source", 56);
    grdList.AddColumn("JVAmount", "Amount", 90);
    mnuFind.Visible = true;
    mnuPost.Visible = App().HasForm("frmJVsPost");
    mnuHistory.Visible = App().HasForm("frmGLHistory");

    // A voucher and its lines go together, in one transaction.
    mnuDelete.OnClick = popDelete.OnClick = [this] { RemoveVoucher(); };
    mnuEdit.OnClick = popEdit.OnClick = [this] { EditVoucher(); };
    mnuCopy.OnClick = [this] { CopyVoucher(); };
    mnuPost.OnClick = [this] { PostVouchers(); };
    mnuHistory.OnClick = [this] { OpenHistory(); };
    mnuPrintJV.OnClick = [this] { PrintVoucher(); };
    grdList.OnTitleClick = [this](ui::GridColumn& column) { SortByTitle(column); };
    mnuSortPeriod.Click();
}

void TfrmJVs::AddListFields() {
    // The calculated columns exist only in the cursor: they are added while it is closed.
    tblJV.Close();
    AddVoucherLabelFields(tblJV);
    tblJV.Open();
}

void TfrmJVs::SortByTitle(ui::GridColumn& column) {
    // Two orders share the period and the date columns: a second click turns the order round.
    std::pair<ui::MenuItem*, ui::MenuItem*> pairs[] = {
        {&mnuSortPeriod, &mnuSortPeriodDesc}, {&mnuSortPeriodDate, &mnuSortPeriodDateDesc}};
    std::string field = column.FieldName;
    for (auto [ascending, descending] : pairs) {
        bool thisColumn = (field == "Periodppyyyy" && ascending == &mnuSortPeriod) ||
                          (field == "TransDate" && ascending == &mnuSortPeriodDate);
        if (!thisColumn) continue;
        (ascending->Checked() ? descending : ascending)->Click();
        return;
    }
    if (field == "JVNumber") return mnuSortJVNumber.Click();
    if (field == "TransDescription") return mnuSortDescription.Click();
    PressKey(ui::KeyStroke(ui::Key::Alt));
}

TfrmJV& TfrmJVs::VoucherForm() {
    return App().SingleForm<TfrmJV>(Db());
}

shell::EntryForm& TfrmJVs::Entry() {
    return VoucherForm();
}

shell::FilterForm* TfrmJVs::Filter() {
    return &App().SingleForm<TfrmJVsFilter>(static_cast<shell::ListForm&>(*this));
}

void TfrmJVs::Print() {
    auto report = std::make_unique<TrptJVs>(Db());
    FollowList(tblJV, report->tblJV);
    reports::PreviewReport(App(), std::move(report));
}

void TfrmJVs::PrintVoucher() {
    if (tblJV.IsEmpty()) return;
    reports::PreviewReport(App(),
                           std::make_unique<TrptJV>(Db(), tblJV.FieldByName("JVID").AsInteger()));
}

shell::FindForm* TfrmJVs::Find() {
    return &App().SingleForm<TfrmJVsFind>(static_cast<shell::ListForm&>(*this));
}

void TfrmJVs::FollowVoucher(TfrmJV& form) {
    // After a save and after an unpost alike the list reads afresh and stands on the voucher.
    auto moveTo = [this](shell::EntryForm& voucher) {
        store::Value id = voucher.EntryTable.FieldByName("JVID").AsValue();
        RefreshList();
        tblJV.Locate("JVID", {id});
    };
    form.AfterSave = moveTo;
    form.AfterUnpost = moveTo;
}

void TfrmJVs::EditVoucher() {
    if (tblJV.IsEmpty()) return;
    // A posted voucher opens only to be looked at (and unposted): its edit is refused.
    if (!tblJV.FieldByName("Posted").AsBoolean()) return EditRecord();
    TfrmJV& form = VoucherForm();
    FollowVoucher(form);
    if (!form.EntryTable.Locate("JVID", {tblJV.FieldByName("JVID").AsValue()}))
        throw Exception("The record has been deleted by another user");
    form.Show();
}

void TfrmJVs::RemoveVoucher() {
    if (tblJV.IsEmpty()) return;
    std::string number = tblJV.FieldByName("JVNumber").AsString();
    if (App().MessageDlg("Delete JV '" + number + "'?", ui::MsgType::Confirmation,
                         {ui::mbYes, ui::mbNo}) != ui::mbYes)
        Abort();
    std::string refusal = VoucherDeleteRefusal(tblJV);
    if (!refusal.empty()) throw Exception(refusal);
    DeleteVoucher(tblJV);
    tblJV.FlushBuffers();
}

void TfrmJVs::CopyVoucher() {
    if (tblJV.IsEmpty()) return;
    if (tblJV.FieldByName("Source").AsString() != "GL")
        throw Exception("Unable to copy JV '" + tblJV.FieldByName("JVNumber").AsString() +
                        "'...\n" + text::NotGLSource);
    int sourceId = static_cast<int>(tblJV.FieldByName("JVID").AsInteger());
    TfrmJV& form = VoucherForm();
    FollowVoucher(form);
    form.CopyFrom(sourceId);
    form.Show();
}

void TfrmJVs::PostVouchers() {
    ui::Form* post = App().OpenForm("frmJVsPost");
    if (!post) return;
    // The dialog is made for this one run: it goes when it closes, however it closes, so that
    // the next Post makes a fresh one.
    struct Free {
        ui::Form& form;
        ~Free() { form.App().FreeForm(form); }
    } free{*post};
    post->ShowModal();
    RefreshList();
}

void TfrmJVs::OpenHistory() {
    if (!App().CheckAccess("GLHistory", "GL History")) return;
    ui::Form* form = App().OpenForm("frmGLHistory");
    auto* history = dynamic_cast<TfrmGLHistory*>(form);
    if (!history) {
        if (form) form->Show();
        return;
    }
    // All lines, newest first, until the user names what to see; an account picked earlier
    // elsewhere does not carry over.
    history->FilterDialog().Clear();
    history->ApplyFilter({}, false, 0);
    history->RunFilterFirst();
}

} // namespace corvane::ledger
