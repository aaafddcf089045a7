#include "banking/banks/TfrmBankBook.h"

#include "shell/lookups/TdmLookUps.h"
#include "ui/Layout.h"

namespace corvane::banking {

namespace {
constexpr const char* kAmountFormat = "#,###,##0.00#;(#,###,##0.00#)";
}

TfrmBankBook::TfrmBankBook(ui::Application& app, store::Database& db, shell::TdmLookUps& lookUps)
    : Form(app, "frmBankBook"), qryBankBook(db),
      cboBank(*this, "cboBank", lookUps.ListSource(shell::LookUp::Bank), "BankID", "BankName"),
      db_(db) {
    using namespace ui;
    lookUps.Open(shell::LookUp::Bank, db);
    Caption = "Bank Book";
    qryBankBook.SetSQL("SELECT GLHistID, TransDate, Amount FROM GLHist "
                       "WHERE GLAccountID = :Account ORDER BY TransDate, GLHistID");
    qryBankBook.AddCalculatedField("PaymentDeposit", store::FieldType::String, 25);
    qryBankBook.AddCalculatedField("Description", store::FieldType::String, 60);
    qryBankBook.AddCalculatedField("Balance", store::FieldType::Currency).DisplayFormat =
        kAmountFormat;
    qryBankBook.OnCalcFields = [this](store::DataSet& ds) {
        auto line = lines_.find(ds.FieldByName("GLHistID").AsInteger());
        if (line == lines_.end()) return;
        ds.FieldByName("PaymentDeposit").SetAsString(line->second.PaymentDeposit);
        ds.FieldByName("Description").SetAsString(line->second.Description);
        ds.FieldByName("Balance").SetAsMoney(line->second.Balance);
    };
    // Only the latest rows are shown; their balances carry all the rows before.
    qryBankBook.OnFilterRecord = [this](store::DataSet& ds) {
        return lines_.count(ds.FieldByName("GLHistID").AsInteger()) > 0;
    };
    grdBankBook.ReadOnly = true;
    grdBankBook.AddColumn("TransDate", "Date", 70);
    grdBankBook.AddColumn("PaymentDeposit", "Payment/Deposit", 110);
    grdBankBook.AddColumn("Description", "Description", 240);
    grdBankBook.AddColumn("Amount", "Amount", 90);
    grdBankBook.AddColumn("Balance", "Balance", 100);
    SetLayout(Column{FormRow{"Bank:", cboBank}, grdBankBook});
    cboBank.OnChange = [this] { ShowBank(); };
    mnuRefresh.OnClick = [this] { ShowBank(); };
}

TfrmBankBook::~TfrmBankBook() {
    qryBankBook.OnCalcFields = nullptr;
    qryBankBook.OnFilterRecord = nullptr;
}

void TfrmBankBook::SetDefaultBankID(std::int64_t bankId) {
    if (bankId == 0) {
        store::Query first(db_, "SELECT BankID FROM Bank ORDER BY BankName");
        first.Open();
        if (!first.IsEmpty()) bankId = first.FieldByName("BankID").AsInteger();
    }
    if (bankId != 0) cboBank.SetKeyValue(bankId);
    ShowBank();
}

void TfrmBankBook::ShowBank() {
    lines_.clear();
    qryBankBook.Close();
    const store::Value bank = cboBank.KeyValue();
    if (bank.IsNull()) return;
    const std::vector<BankHistoryRow> rows = ReadBankHistory(db_, bank.Int());
    for (BankBookLine& line : BuildBankBook(rows))
        lines_.emplace(line.GLHistID, std::move(line));
    store::Query account(db_, "SELECT BankGLAccountID FROM Bank WHERE BankID = :ID");
    account.ParamByName("ID").SetAsInteger(bank.Int());
    account.Open();
    qryBankBook.ParamByName("Account").SetAsInteger(
        account.FieldByName("BankGLAccountID").AsInteger());
    qryBankBook.SetFiltered(true);
    qryBankBook.Open();
    qryBankBook.FieldByName("TransDate").DisplayFormat = "dd mmm yy";
    qryBankBook.FieldByName("Amount").DisplayFormat = kAmountFormat;
    qryBankBook.Last();
}

} // namespace corvane::banking
