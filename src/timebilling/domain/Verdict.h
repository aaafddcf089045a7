#pragma once

#include <string>

namespace corvane::timebilling {

// What a check says of a record: accepted, or refused with the sentence the user reads and the
// field the form puts the focus on. The form decides how to show it; the rule only decides.
struct Verdict {
    std::string Message; // empty when accepted
    std::string Field;   // the field at fault, when there is one

    bool Accepted() const { return Message.empty(); }
    static Verdict Accept() { return {}; }
    static Verdict Refuse(std::string message, std::string field = {}) {
        return {std::move(message), std::move(field)};
    }
};

} // namespace corvane::timebilling
