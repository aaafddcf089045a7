#pragma once

namespace corvane::shell {
class ListForm;
}

namespace corvane::ledger {

// Finds an account in a totals or history list: the account search opens with the typed
// character (0 for none), and the list goes to the first of its rows that carries the account
// chosen. A chosen account the list does not show is reported as not found in list.
void FindAccountInList(shell::ListForm& list, char firstChar);

} // namespace corvane::ledger
