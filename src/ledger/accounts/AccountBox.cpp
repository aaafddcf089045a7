#include "ledger/accounts/AccountBox.h"

#include "core/Exception.h"
#include "ledger/accounts/TfrmGLAccountSearch.h"
#include "store/Query.h"
#include "store/tables/CompanyTables.h"
#include "ui/Application.h"
#include "ui/Form.h"

namespace corvane::ledger {

namespace {

constexpr char kCtrlEnter = 10;
constexpr char kEscape = 27;

store::Value AccountField(store::Database& db, std::int64_t id, const std::string& field) {
    store::Query query(db);
    // The field is one of two names of the program's own.
    query.SetSQL("SELECT " + field + " FROM GLAccnt WHERE GLAccountID = :ID");
    query.ParamByName("ID").SetAsInteger(id);
    query.Open();
    return query.IsEmpty() ? store::Value() : query.Fields().front()->AsValue();
}

} // namespace

bool AccountExists(store::Database& db, std::int64_t glAccountId) {
    return !AccountField(db, glAccountId, "GLAccountID").IsNull();
}

AccountBox::AccountBox(ui::Edit& box, store::DataSet& dataSet, std::string idField,
                       store::Database& db, AccountBoxShows shows)
    : box_(box), dataSet_(dataSet), idField_(std::move(idField)), db_(db), shows_(shows),
      link_(dataSet, idField_, [this] { ShowStored(); }) {
    // The box is as wide as the longest number or name an account can have.
    box_.ShownChars =
        store::tables::GLAccnt()
            .FindField(shows_ == AccountBoxShows::Number ? "GLAccount" : "AccountName")
            ->Size;
    box_.OnKeyPress = [this](char& ch) { KeyPress(ch); };
    box_.OnKeyDown = [this](ui::Key& key, ui::Modifiers mods) {
        if (key == ui::Key::Enter && mods.Ctrl) {
            // Ctrl+Enter types a line feed: the button's key, not a move to the next control.
            key = ui::Key::None;
            Pick(0);
        }
    };
    if (store::Field* field = dataSet_.FindField(idField_)) {
        field->OnValidate = [this](store::Field& f) {
            if (!f.IsNull() && !AccountExists(db_, f.AsInteger()))
                throw Exception("GL Account not found");
        };
    }
    ShowStored();
}

void AccountBox::KeyPress(char& ch) {
    char typed = ch;
    if (typed == kEscape) {
        ShowStored();
        return;
    }
    if (typed == kCtrlEnter || static_cast<unsigned char>(typed) > kEscape) {
        // The box is never typed into: what was typed goes to the search.
        ch = 0;
        Pick(typed == kCtrlEnter ? 0 : typed);
    }
}

bool AccountBox::Pick(char firstChar) {
    ui::Application& app = box_.OwnerForm().App();
    auto& search = app.SingleForm<TfrmGLAccountSearch>(db_);
    shell::SearchStart start;
    start.IndexName = shows_ == AccountBoxShows::Number ? "GLAccount" : "AccountName1";
    store::Field* field = dataSet_.FindField(idField_);
    if (field && !field->IsNull()) start.Key = {field->AsValue()};
    start.FirstChar = firstChar;
    search.Start(box_, start);
    search.Caption = "GL Account";
    if (search.ShowModal() != ui::mrOK) return false;
    std::int64_t id = search.SelectedAccountID();
    if (dataSet_.State() == store::DataSetState::Browse) dataSet_.Edit();
    dataSet_.FieldByName(idField_).SetAsInteger(id);
    ShowStored();
    return true;
}

void AccountBox::ShowStored() {
    store::Field* field = dataSet_.Active() ? dataSet_.FindField(idField_) : nullptr;
    std::string text;
    if (field && !field->IsNull()) {
        store::Value shown =
            AccountField(db_, field->AsInteger(),
                         shows_ == AccountBoxShows::Number ? "GLAccount" : "AccountName");
        if (!shown.IsNull()) text = shown.Str();
    }
    if (box_.Text() != text) box_.SetText(text);
}

void AccountBox::CheckStillExists() {
    store::Field& field = dataSet_.FieldByName(idField_);
    if (!field.IsNull() && !AccountExists(db_, field.AsInteger())) {
        if (box_.CanFocus()) box_.SetFocus();
        throw Exception("GL Account no longer exists");
    }
}

} // namespace corvane::ledger
