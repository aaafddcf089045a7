#include "shell/patterns/FindForm.h"

#include "core/Exception.h"
#include "shell/patterns/ListForm.h"

namespace corvane::shell {

FindForm::FindForm(ui::Application& app, std::string name, ListForm& list)
    : Form(app, std::move(name)), list_(list) {
    Caption = "Find";
    KeyPreview = true;
    OnKeyDown = [](ui::Key& key, ui::Modifiers) { ui::SwallowAlt(key); };
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnCancel.ModalResult = ui::mrCancel;
    btnOK.OnClick = [this] { FindRow(); };
}

void FindForm::AddKeyEdit(ui::Edit& edit, std::string fieldName, std::string indexName) {
    edits_.push_back({&edit, std::move(fieldName), std::move(indexName)});
}

void FindForm::FindRow() {
    const KeyEdit* filled = nullptr;
    for (const KeyEdit& k : edits_)
        if (!k.Edit->Text().empty()) {
            filled = &k;
            break;
        }
    if (!filled) {
        if (!edits_.empty()) edits_.front().Edit->SetFocus();
        throw Exception("Enter a value to find");
    }
    store::Table& table = list_.MainTable;
    std::string oldIndex = table.IndexName();
    table.SetIndexName(filled->IndexName);
    store::Value value = table.FieldByName(filled->FieldName).Coerce(filled->Edit->Text());
    if (!table.Locate(filled->FieldName, {value}, {.CaseInsensitive = true})) {
        table.SetIndexName(oldIndex);
        filled->Edit->SetFocus();
        throw Exception("'" + filled->Edit->Text() + "' not found");
    }
    SetModalResult(ui::mrOK);
}

} // namespace corvane::shell
