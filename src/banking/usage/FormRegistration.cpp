#include "banking/usage/FormRegistration.h"

#include "shell/lookups/TdmLookUps.h"
#include "shell/main/TfrmCorvane.h"

namespace corvane::banking {

shell::TdmLookUps& LookUpsFor(const shell::FormContext& ctx) {
    static shell::TdmLookUps standalone;
    return ctx.Main ? ctx.Main->dmLookUps : standalone;
}

shell::TdmLookUps* MainLookUps(const shell::FormContext& ctx) {
    return ctx.Main ? &ctx.Main->dmLookUps : nullptr;
}

} // namespace corvane::banking
