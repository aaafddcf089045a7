#include "banking/currencies/TfrmCurrencies.h"

#include "banking/currencies/TfrmCurrency.h"
#include "banking/domain/CurrencyRecord.h"
#include "core/Exception.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/Application.h"

namespace corvane::banking {

TfrmCurrencies::TfrmCurrencies(ui::Application& app, store::Database& db)
    : ListForm(app, "frmCurrencies", "Currencies", db, "Currency", "tblCurrency", "CurrencyID"),
      mnuSortCurrencyName(
          AddSortEntry("mnuSortCurrencyName", "&Name", "CurrencyName", "CurrencyName1")) {
    grdList.AddColumn("CurrencyName", "Name", 160);
    grdList.AddColumn("ExchangeRate", "Exchange Rate", 100);
    // Currencies are few: the list has neither a filter nor a printed report.
    mnuFilter.Visible = false;
    mnuPrint.Visible = false;
    mnuFileSep.Visible = false;
    tblCurrency.BeforeDelete = [this](store::DataSet&) { BeforeDeleteCurrency(); };
    tblCurrency.AfterDelete = [this](store::DataSet&) {
        if (LookUps) LookUps->RefreshIfOpen(shell::LookUp::Currency);
    };
    mnuSortCurrencyName.Click();
}

shell::EntryForm& TfrmCurrencies::Entry() {
    auto& entry = App().SingleForm<TfrmCurrency>(Db());
    entry.LookUps = LookUps;
    return entry;
}

void TfrmCurrencies::BeforeDeleteCurrency() {
    std::string name = tblCurrency.FieldByName("CurrencyName").AsString();
    if (App().MessageDlg(DeleteQuestion(name), ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) !=
        ui::mbYes)
        Abort();
    std::string reason = CurrencyInUse(Db(), tblCurrency.FieldByName("CurrencyID").AsInteger());
    if (!reason.empty()) throw Exception(DeleteRefusal(name, reason));
}

} // namespace corvane::banking
