#include "banking/banks/TfrmBanks.h"

#include "banking/banks/TfrmBank.h"
#include "banking/domain/BankRecord.h"
#include "core/Exception.h"
#include "core/Refusal.h"
#include "shell/lookups/TdmLookUps.h"
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
    mnuBankBook.OnClick = [this] {
        if (OpenBankForm && !tblBank.IsEmpty())
            OpenBankForm("frmBankBook", "BankBook", tblBank.FieldByName("BankID").AsInteger());
    };
    mnuBankRec.OnClick = [this] {
        if (OpenBankForm && !tblBank.IsEmpty())
            OpenBankForm("frmBankRec", "BankRec", tblBank.FieldByName("BankID").AsInteger());
    };
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
    entry.OpenListForm = OpenListForm;
    return entry;
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
