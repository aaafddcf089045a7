#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace corvane {

// Why a record may not be saved as it stands: the sentence the user reads and the field it is
// about, so that a form can put the focus there. Domain checks return one; forms raise it.
struct Refusal {
    std::string Field;
    std::string Message;
};
using Verdict = std::optional<Refusal>;

// "Field '<label>' must have a value", about field.
Refusal MissingValue(std::string_view field, std::string_view label);

// "Delete '<name>'?", asked before any row of a list is deleted.
std::string DeleteQuestion(std::string_view name);
// "Unable to delete '<name>'...\n<reason>", when the row is still in use.
std::string DeleteRefusal(std::string_view name, std::string_view reason);

} // namespace corvane
