#pragma once

#include <string>
#include <string_view>

namespace corvane::ui {

class Form;

// How one form reaches the program's other forms: by their registered names, with the signed-in
// user's rights. The main form provides it while it stands; a form made on its own (in a test)
// finds none, and hides or skips what would need it.
class FormService {
public:
    virtual ~FormService() = default;

    // Whether the program has a form of that name.
    virtual bool HasForm(std::string_view name) const = 0;
    // The form of that name, made or the one already open, not yet shown; null when the program
    // has none.
    virtual Form* OpenForm(std::string_view name) = 0;
    // Whether the user may use what right names; a refusal is told to the user, naming
    // displayName.
    virtual bool CheckAccess(const std::string& right, const std::string& displayName) = 0;
    // Prints what the list shows through the report the program has for it; false when it has
    // none.
    virtual bool PrintList(Form& list) = 0;
    // Whether the session found A4 paper in the default printer; reports then print on A4.
    virtual bool ReportsOnA4() const { return false; }
};

} // namespace corvane::ui
