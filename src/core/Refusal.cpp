#include "core/Refusal.h"

namespace corvane {

Refusal MissingValue(std::string_view field, std::string_view label) {
    return {std::string(field), "Field '" + std::string(label) + "' must have a value"};
}

std::string DeleteQuestion(std::string_view name) {
    return "Delete '" + std::string(name) + "'?";
}

std::string DeleteRefusal(std::string_view name, std::string_view reason) {
    return "Unable to delete '" + std::string(name) + "'...\n" + std::string(reason);
}

} // namespace corvane
