#include "shell/companies/CompanyListSearch.h"

#include "shell/companies/CompanyShortcuts.h"
#include "ui/Application.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/ListBox.h"

namespace corvane::shell {

CompanyListSearch::CompanyListSearch(ui::ListBox& list, ui::Edit& edit,
                                     std::function<void()> selected)
    : list_(list), edit_(edit), selected_(std::move(selected)) {
    edit_.OnKeyPress = [this](char& ch) { KeyPress(ch); };
    edit_.OnKeyDown = [this](ui::Key& key, ui::Modifiers) { KeyDown(key); };
}

void CompanyListSearch::Select(int index) {
    list_.SetItemIndex(index);
    if (selected_) selected_();
}

void CompanyListSearch::ShowItem(int index) {
    Select(index);
    edit_.SetText(list_.Text());
    edit_.SelectAll();
}

int CompanyListSearch::Find(std::string_view prefix) const {
    std::string wanted = UpperCase(prefix);
    for (int i = 0; i < list_.Count(); ++i) {
        const std::string& name = list_.Items()[static_cast<std::size_t>(i)];
        if (name.size() >= wanted.size() && UpperCase(name.substr(0, wanted.size())) == wanted)
            return i;
    }
    return -1;
}

void CompanyListSearch::KeyPress(char& ch) {
    if (ch == '\r' || ch == 27) return; // the dialog's buttons take these
    bool backspace = ch == 8;
    std::string text = edit_.Text();
    std::string prefix = backspace
                             ? (text.empty() ? text : text.substr(0, text.size() - 1))
                             : text.substr(0, static_cast<std::size_t>(edit_.SelStart())) + ch;
    int found = Find(prefix);
    if (found < 0) {
        edit_.OwnerForm().App().Desktop().Beep();
        ch = 0;
        return;
    }
    Select(found);
    // Backspace goes on to the edit, which deletes the completed tail or one character.
    if (backspace) return;
    ch = 0;
    std::string name = list_.Text();
    edit_.SetText(name);
    edit_.Select(static_cast<int>(prefix.size()), static_cast<int>(name.size()));
}

void CompanyListSearch::KeyDown(ui::Key& key) {
    if (key != ui::Key::Up && key != ui::Key::Down) return;
    int index = list_.ItemIndex();
    int last = list_.Count() - 1;
    if (key == ui::Key::Down && index < last) ++index;
    if (key == ui::Key::Up && index > 0) --index;
    key = ui::Key::None;
    if (index < 0) return;
    ShowItem(index);
}

} // namespace corvane::shell
