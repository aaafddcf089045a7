#include "ledger/inquiry/InquiryList.h"

#include "ledger/inquiry/AccountFind.h"
#include "shell/patterns/ListForm.h"

namespace corvane::ledger {

void HideRowEditing(shell::ListForm& list) {
    for (ui::MenuItem* item : {&list.mnuNew, &list.mnuEdit, &list.mnuDelete, &list.popNew,
                               &list.popEdit, &list.popDelete}) {
        item->Visible = false;
        item->Enabled = false;
    }
    for (ui::ToolButton* button : {&list.tbnNew, &list.tbnEdit, &list.tbnDelete})
        button->OwnVisible = false;
}

void OpenOrFindAccount(shell::ListForm& list, char& key, const std::function<void()>& open) {
    char typed = key;
    if (typed == '\r') {
        key = 0;
        open();
    } else if (static_cast<unsigned char>(typed) > 27) {
        key = 0;
        FindAccountInList(list, typed);
    }
}

} // namespace corvane::ledger
