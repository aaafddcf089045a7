#include "ledger/inquiry/WholeNumber.h"

#include "core/Exception.h"

#include <charconv>

namespace corvane::ledger {

int WholeNumberOf(const std::string& typed) {
    std::size_t start = typed.find_first_not_of(' ');
    std::size_t end = typed.find_last_not_of(' ');
    int value = 0;
    if (start != std::string::npos) {
        const char* first = typed.data() + start;
        const char* last = typed.data() + end + 1;
        if (*first == '+') ++first;
        auto [ptr, ec] = std::from_chars(first, last, value);
        if (ec == std::errc() && ptr == last && first != last) return value;
    }
    throw Exception("'" + typed + "' is not a valid integer value");
}

} // namespace corvane::ledger
