#include "banking/import/ImportCommand.h"

#include "banking/import/TfrmImport.h"
#include "shell/patterns/OpenList.h"
#include "ui/Application.h"

namespace corvane::banking {

bool ImportInto(ui::Application& app, const std::string& table) {
    ui::Form* opened = shell::OpenAllowed(app, "frmImport", "Import");
    auto* import = dynamic_cast<TfrmImport*>(opened);
    if (!import) return false;
    import->OnTable(table);
    const bool imported = import->ShowModal() == ui::mrOK;
    app.FreeForm(*import);
    return imported;
}

} // namespace corvane::banking
