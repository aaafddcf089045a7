#include "banking/banks/TfrmBanks.h"

#include "banking/banks/TfrmBank.h"
#include "banking/banks/TfrmBankBook.h"
#include "banking/domain/BankRecord.h"
#include "core/Exception.h"
#include "core/Refusal.h"
#include "shell/lookups/TdmLookUps.h"
#include "shell/patterns/OpenList.h"
#include "ui/Application.h"

namespace corvane::banking {

TfrmBanks::TfrmBanks(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps)
    : ListForm(app, "frmBanks", "Banks", db, "Bank", "tblBank", "BankID"),
      tblCurrency(db, "Currency"),
      mnuSortBankName(AddSortEntry("mnuSortBankName", "&Name", "BankName", "BankName1")),
      lookUps_(lookUps) {
    tblBank.Close();
    tblCurrency.Open();
    tblBank.AddLookupField("CurrencyName", store::FieldType::String, 20, "CurrencyID", tblCurrency,
                           "CurrencyID", "CurrencyName");
    tblBank.Open();
    grdList.AddColumn("BankName", "Name", 220);
    grdList.AddColumn("CurrencyName", "Currency", 140);
    mnuFilter.Visible = false;
    mnuBankBook.OnClick = [this] { OpenForBank("frmBankBook", "BankBook"); };
    mnuBankRec.OnClick = [this] { OpenForBank("frmBankRec", "BankRec"); };
    tblBank.BeforeDelete = [this](store::DataSet&) { BeforeDeleteBank(); };
    tblBank.AfterDelete = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::Bank);
    };
    mnuSortBankName.Click();
}

TfrmBanks::~TfrmBanks() {
    tblBank.BeforeDelete = tblBank.AfterDelete = nullptr;
}

shell::EntryForm& TfrmBanks::Entry() {
    tblCurrency.Refresh();
    auto& entry = App().SingleForm<TfrmBank>(Db(), lookUps_);
    entry.LookUps = LookUps;
    return entry;
}

void TfrmBanks::OpenForBank(std::string_view form, std::string_view right) {
    if (tblBank.IsEmpty()) return;
    const std::int64_t bankId = tblBank.FieldByName("BankID").AsInteger();
    ui::Form* opened = shell::OpenAllowed(App(), form, right);
    if (!opened) return;
    if (auto* book = dynamic_cast<TfrmBankBook*>(opened)) book->SetDefaultBankID(bankId);
    opened->Show();
}

void TfrmBanks::BeforeDeleteBank() {
    const std::string name = tblBank.FieldByName("BankName").AsString();
    if (App().MessageDlg(DeleteQuestion(name), ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) !=
        ui::mbYes)
        Abort();
    const std::string reason = BankInUse(Db(), tblBank.FieldByName("BankID").AsInteger());
    if (!reason.empty()) throw Exception(DeleteRefusal(name, reason));
}

} // namespace corvane::banking
