#include "banking/usage/RefusalFocus.h"

#include "core/Exception.h"
#include "ui/Control.h"

namespace corvane::banking {

void RaiseRefusal(const Verdict& verdict, std::span<const FieldControl> controls) {
    if (!verdict) return;
    for (const FieldControl& control : controls) {
        if (control.Field != verdict->Field) continue;
        if (control.Reveal) control.Reveal();
        if (control.Control && control.Control->CanFocus()) control.Control->SetFocus();
        break;
    }
    throw Exception(verdict->Message);
}

} // namespace corvane::banking
