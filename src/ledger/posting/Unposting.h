#pragma once

#include <cstdint>

namespace corvane::store {
class Database;
}
namespace corvane::ui {
class Application;
}

namespace corvane::ledger {

// Takes one posted voucher back out of the history and the totals and makes it editable again,
// after the user's Yes. Returns true when it was unposted; false when the year is closed or the
// user declined. Raises the failure of the run, with nothing changed.
bool UnpostJV(ui::Application& app, store::Database& db, std::int64_t jvid, int fiscalYear);

namespace unposting {
inline constexpr const char* ClosedYearMessage =
    "JV is from a previous closed year.\n\nYou need to re-open the year before you can unpost "
    "this JV.\nMenu File | General | Your Company\nChange the Fiscal Year.";
inline constexpr const char* Question = "Unpost this JV?";
inline constexpr const char* AlreadyUnpostedMessage =
    "JV has already been unposted by another user.";
} // namespace unposting

} // namespace corvane::ledger
