#include "banking/BankingForms.h"

namespace corvane::banking {

void RegisterBankingForms(shell::FormRegistry&) {}

} // namespace corvane::banking
