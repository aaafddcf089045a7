#pragma once

#include <string>
#include <string_view>

namespace corvane::ledger {

// What the voucher forms tell the user, in the system's own words.
namespace voucher_text {
inline constexpr const char* NoDescription = "'Description' must be entered";
inline constexpr const char* NoLines = "Amounts and GL Accounts have not been entered";
inline constexpr const char* NoDebits =
    "No debits have been entered...\nYou must enter at least one debit amount.\nTip: Debits are "
    "entered as positive amounts. Example 10.00";
inline constexpr const char* NoCredits =
    "No credits have been entered...\nYou must enter at least one credit amount.\nTip: Credits "
    "are entered as minus amounts. Example -10.00";
inline constexpr const char* OutOfBalance = "Debits and Credits are out of balance";
inline constexpr const char* NoAmounts = "GL Amounts have not been entered";
inline constexpr const char* DuplicateNumber = "JV no. already exists for this period";
inline constexpr const char* PostedCannotChange =
    "Posted JVs cannot be changed...\n\nTo make changes you need to unpost the JV using the "
    "button at the top right\n(not available for JVs from a prior closed year, but you can "
    "re-open the year)";
inline constexpr const char* TotalTooLarge =
    "The voucher's debits or credits would be larger than the largest amount a voucher holds "
    "(922,337,203,685,477.5807)...\nMake changes or press Esc to undo";
inline constexpr const char* LineNoAccount =
    "'GL Account' must be entered...\nMake changes or press Esc to undo";
inline constexpr const char* LineUnknownAccount =
    "GL Account not found...\nMake changes or press Esc to undo";
inline constexpr const char* TypedUnknownAccount =
    "GL Account not found...\nSelect a different account or press Esc to undo";
inline constexpr const char* SuspendedAccount = "GL Account has been suspended";
inline constexpr const char* TypedUnknownSubaccount =
    "Subaccount not found...\nSelect a different subaccount or press Esc to undo";
inline constexpr const char* SuspendedSubaccount = "Subaccount has been suspended";
inline constexpr const char* NotGLSource = "Its source is not GL";
inline constexpr const char* AlreadyPosted =
    "It has already been posted.\n(Posted JVs can be unposted from the \"Edit\" screen).";
} // namespace voucher_text

// "Subaccount 2 not found...\nMake changes or press Esc to undo".
std::string LineUnknownSubaccount(int level);

// The column of the voucher list: Source, a blank and TransType; a payables cheque reads "AP Pmt".
std::string VoucherSourceLabel(std::string_view source, std::string_view transType);

// The period as the list shows it, "03/2017".
std::string PeriodText(int period, int year);

} // namespace corvane::ledger
