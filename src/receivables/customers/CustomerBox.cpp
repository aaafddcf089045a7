#include "receivables/customers/CustomerBox.h"

#include "store/Table.h"
#include "store/tables/CompanyTables.h"
#include "ui/Form.h"

namespace corvane::receivables {

namespace {
constexpr char kEscape = 27;
} // namespace

CustomerBox::CustomerBox(ui::Edit& box, store::DataSet& dataSet, store::Database& db,
                         bool allowSuspended)
    : box_(box), dataSet_(dataSet), db_(db), allowSuspended_(allowSuspended),
      link_(dataSet, "CustomerID", [this] { ShowStored(); }) {
    box_.ShownChars = store::tables::Customer().FindField("CustomerName")->Size;
    box_.OnKeyDown = [this](ui::Key& key, ui::Modifiers mods) {
        if (key == ui::Key::Enter && !mods.Ctrl && !mods.Alt) {
            key = ui::Key::None;
            Pick(0);
        } else if (key == ui::Key::Escape) {
            // The form's Cancel still hears the key.
            ShowStored();
        } else if (key == ui::Key::Delete) {
            key = ui::Key::None;
        }
    };
    box_.OnKeyPress = [this](char& ch) {
        const char typed = ch;
        // The box is never typed into: a printable key goes to the search, the rest is dropped.
        ch = 0;
        if (static_cast<unsigned char>(typed) > kEscape && typed != 127) Pick(typed);
    };
    ShowStored();
}

bool CustomerBox::Pick(char firstChar) {
    CustomerPick pick;
    store::Field* field = dataSet_.Active() ? dataSet_.FindField("CustomerID") : nullptr;
    if (field) pick.Current = field->AsValue();
    pick.FirstChar = firstChar;
    pick.AllowSuspended = allowSuspended_;
    const std::optional<store::Value> chosen = PickCustomer(box_, db_, pick);
    if (!chosen || !field) return false;
    if (dataSet_.State() == store::DataSetState::Browse) dataSet_.Edit();
    if (field->AsValue() != *chosen) field->SetValue(*chosen);
    ShowStored();
    if (box_.OwnerForm().ActiveControl() == &box_) box_.OwnerForm().SelectNext();
    return true;
}

void CustomerBox::ShowStored() {
    store::Field* field = dataSet_.Active() ? dataSet_.FindField("CustomerID") : nullptr;
    std::string text;
    if (field && !field->IsNull()) {
        store::Table customers(db_, "Customer");
        customers.ReadOnly = true;
        customers.Open();
        const store::Value name =
            customers.Lookup("CustomerID", {field->AsValue()}, "CustomerName");
        if (!name.IsNull()) text = name.Str();
    }
    if (box_.Text() != text) box_.SetText(text);
}

} // namespace corvane::receivables
