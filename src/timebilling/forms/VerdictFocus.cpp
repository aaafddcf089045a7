#include "timebilling/forms/VerdictFocus.h"

#include "core/Exception.h"
#include "ui/Control.h"

namespace corvane::timebilling {

void Enforce(const Verdict& verdict, std::initializer_list<FieldControl> controls) {
    if (verdict.Accepted()) return;
    for (const auto& [field, control] : controls)
        if (field == verdict.Field && control && control->CanFocus()) {
            control->SetFocus();
            break;
        }
    throw Exception(verdict.Message);
}

} // namespace corvane::timebilling
