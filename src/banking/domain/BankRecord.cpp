#include "banking/domain/BankRecord.h"

#include "banking/domain/RecordChecks.h"
#include "banking/domain/RowUse.h"
#include "store/DataSet.h"
#include "store/Query.h"

#include <array>

namespace corvane::banking {

namespace {

constexpr std::array kBankUses{
    RowUse{"APCheq", "BankID", "AP payment(s) exist for this bank"},
    RowUse{"ARPmt", "BankID", "AR payment(s) exist for this bank"},
    RowUse{"ARInv", "POSPmtBankID", "AR invoice(s) exist for this bank. (POS payment)."},
};

std::string Part(const std::string& text, std::size_t from, std::size_t count) {
    return from < text.size() ? text.substr(from, count) : std::string();
}

// A cheque row names its cheque number; a payables row otherwise names its document further in.
std::string PaymentOrDeposit(const BankHistoryRow& row) {
    if (row.Source == "AP")
        return row.TransDescription.compare(0, 10, "AP Cheque ") == 0
                   ? Part(row.TransDescription, 10, 10)
                   : Part(row.TransDescription, 12, 25);
    if (row.Source == "AR") return "Deposit";
    return {};
}

std::string Described(const BankHistoryRow& row) {
    if (row.Source == "AP" || row.Source == "AR") return row.Party;
    return row.TransDescription;
}

} // namespace

Verdict CheckBank(store::Database& db, store::DataSet& bank) {
    if (Verdict missing =
            FirstMissing(bank, {{"BankName", "Bank Name"},
                                {"CurrencyID", "Currency", RequiredField::Id},
                                {"BankGLAccountID", "Bank GL Account", RequiredField::Id}}))
        return missing;
    if (!RowExists(db, "Currency", "CurrencyID", bank.FieldByName("CurrencyID").AsInteger()))
        return Refusal{"CurrencyID", "Currency no longer exists"};
    if (!RowExists(db, "GLAccnt", "GLAccountID", bank.FieldByName("BankGLAccountID").AsInteger()))
        return Refusal{"BankGLAccountID", "GL Account no longer exists"};
    return std::nullopt;
}

Verdict CheckBankCurrencyChange(store::Database& db, std::int64_t bankId) {
    if (AnyRowHolds(db, "APCheq", "BankID", bankId))
        return Refusal{"CurrencyID", "Currency cannot be changed... \nAP payment(s) already exist"};
    return std::nullopt;
}

std::string BankInUse(store::Database& db, std::int64_t bankId) {
    return FirstUse(db, kBankUses, bankId);
}

std::vector<BankHistoryRow> ReadBankHistory(store::Database& db, std::int64_t bankId) {
    std::vector<BankHistoryRow> rows;
    store::Query bank(db, "SELECT BankGLAccountID FROM Bank WHERE BankID = :ID");
    bank.ParamByName("ID").SetAsInteger(bankId);
    bank.Open();
    if (bank.IsEmpty() || NoId(bank.FieldByName("BankGLAccountID"))) return rows;
    store::Query history(db,
                         "SELECT H.GLHistID, H.TransDate, H.Source, H.Amount, H.TransDescription, "
                         "V.VendorName, V.VendorNo, C.CustomerName, C.CustomerNo FROM GLHist H "
                         "LEFT JOIN Vendor V ON V.VendorID = H.VendorID "
                         "LEFT JOIN Customer C ON C.CustomerID = H.CustomerID "
                         "WHERE H.GLAccountID = :Account ORDER BY H.TransDate, H.GLHistID");
    history.ParamByName("Account").SetAsInteger(bank.FieldByName("BankGLAccountID").AsInteger());
    history.Open();
    for (history.First(); !history.Eof(); history.Next()) {
        BankHistoryRow row;
        row.GLHistID = history.FieldByName("GLHistID").AsInteger();
        row.TransDate = history.FieldByName("TransDate").AsDate();
        row.Source = history.FieldByName("Source").AsString();
        row.Amount = history.FieldByName("Amount").AsMoney();
        row.TransDescription = history.FieldByName("TransDescription").AsString();
        const char* name = row.Source == "AP" ? "VendorName" : "CustomerName";
        const char* number = row.Source == "AP" ? "VendorNo" : "CustomerNo";
        if (!history.FieldByName(name).IsNull())
            row.Party = history.FieldByName(name).AsString() + " (" +
                        history.FieldByName(number).AsString() + ")";
        rows.push_back(std::move(row));
    }
    return rows;
}

std::vector<BankBookLine> BuildBankBook(std::span<const BankHistoryRow> rows, std::size_t shown) {
    std::vector<BankBookLine> lines;
    const std::size_t first = rows.size() > shown ? rows.size() - shown : 0;
    Money balance;
    for (std::size_t i = 0; i < rows.size(); ++i) {
        balance += rows[i].Amount;
        if (i < first) continue;
        lines.push_back({rows[i].GLHistID, rows[i].TransDate, PaymentOrDeposit(rows[i]),
                         Described(rows[i]), rows[i].Amount, balance});
    }
    return lines;
}

} // namespace corvane::banking
