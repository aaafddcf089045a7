#include "ledger/accounts/SubAccountBox.h"

#include "core/Exception.h"
#include "ledger/accounts/TfrmGLAccountSub.h"
#include "ledger/accounts/TfrmGLAccountSubSearch.h"
#include "ledger/domain/VoucherTexts.h"
#include "store/Table.h"
#include "store/tables/CompanyTables.h"
#include "ui/Application.h"
#include "ui/Form.h"

namespace corvane::ledger {

namespace {
constexpr char kBackspace = 8;
constexpr char kCtrlEnter = 10;
constexpr char kEscape = 27;
} // namespace

SubAccountBox::SubAccountBox(ui::Edit& box, store::DataSet& dataSet, std::string idField, int level,
                             store::Database& db)
    : box_(box), dataSet_(dataSet), idField_(std::move(idField)), level_(level), db_(db),
      link_(dataSet, idField_, [this] { ShowStored(); }) {
    box_.ShownChars = store::tables::GLAcSub1().FindField("SubAccount")->Size;
    box_.OnKeyPress = [this](char& ch) { KeyPress(ch); };
    box_.OnKeyDown = [this](ui::Key& key, ui::Modifiers mods) {
        if (key == ui::Key::Enter && mods.Ctrl) {
            // Ctrl+Enter types a line feed: the search's key, not a move to the next control.
            key = ui::Key::None;
            Pick(0);
        } else if (key == ui::Key::Delete) {
            key = ui::Key::None;
            Clear();
        }
    };
    ShowStored();
}

void SubAccountBox::KeyPress(char& ch) {
    const char typed = ch;
    if (typed == kEscape) {
        ShowStored();
        return;
    }
    if (typed == kBackspace) {
        ch = 0;
        Clear();
        return;
    }
    if (typed == kCtrlEnter || static_cast<unsigned char>(typed) > kEscape) {
        // The box is never typed into: what was typed goes to the search.
        ch = 0;
        Pick(typed == kCtrlEnter ? 0 : typed);
    }
}

void SubAccountBox::Clear() {
    if (dataSet_.State() == store::DataSetState::Browse) dataSet_.Edit();
    dataSet_.FieldByName(idField_).Clear();
    ShowStored();
}

bool SubAccountBox::Pick(char firstChar) {
    ui::Application& app = box_.OwnerForm().App();
    auto& search = app.SingleForm<TfrmGLAccountSubSearch>(db_);
    search.SetLevel(level_);
    shell::SearchStart start;
    start.IndexName = "SubAccount";
    store::Field* field = dataSet_.FindField(idField_);
    if (field && !field->IsNull()) start.Key = {field->AsValue()};
    start.FirstChar = firstChar;
    search.Start(box_, start);
    if (search.ShowModal() != ui::mrOK || search.SearchTable.IsEmpty()) return false;
    if (search.SearchTable.FieldByName("Suspended").AsBoolean())
        throw Exception(voucher_text::SuspendedSubaccount);
    const store::Value chosen = search.SelectedKey().front();
    if (dataSet_.State() == store::DataSetState::Browse) dataSet_.Edit();
    dataSet_.FieldByName(idField_).SetValue(chosen);
    ShowStored();
    return true;
}

void SubAccountBox::ShowStored() {
    store::Field* field = dataSet_.Active() ? dataSet_.FindField(idField_) : nullptr;
    std::string text;
    if (field && !field->IsNull()) {
        store::Table subs(db_, SubAccountTable(level_));
        subs.ReadOnly = true;
        subs.Open();
        const store::Value number = subs.Lookup("SubAccountID", {field->AsValue()}, "SubAccount");
        if (!number.IsNull()) text = number.Str();
    }
    if (box_.Text() != text) box_.SetText(text);
}

} // namespace corvane::ledger
