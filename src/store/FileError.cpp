#include "store/FileError.h"

namespace corvane::store {

std::string NotDoneMessage(const std::string& action, const EngineError& error) {
    const auto* file = dynamic_cast<const FileError*>(&error);
    if (!file || file->Reason().empty()) return error.what();
    return action + " was not done: " + file->Reason() + ". Nothing was changed.";
}

std::string CorruptMessage(const std::string& folder) {
    return "Table data of company '" + folder +
           "' is corrupt (company.DAT).\nNothing was changed. Repair the company through Menu "
           "File | General | Pack/Repair, or restore it from a backup.";
}

} // namespace corvane::store
