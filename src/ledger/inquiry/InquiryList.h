#pragma once

#include <functional>

namespace corvane::shell {
class ListForm;
}

namespace corvane::ledger {

// The totals and history lists show what posting wrote: their commands to add, change and
// remove a row are hidden and switched off.
void HideRowEditing(shell::ListForm& list);

// A key typed in such a list: Enter opens what the row stands for, a printable character starts
// the account search with it. Either key goes no further; any other is left alone.
void OpenOrFindAccount(shell::ListForm& list, char& key, const std::function<void()>& open);

} // namespace corvane::ledger
