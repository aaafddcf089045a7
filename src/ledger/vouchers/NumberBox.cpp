#include "ledger/vouchers/NumberBox.h"

#include "core/Exception.h"
#include "core/Text.h"
#include "store/Table.h"

namespace corvane::ledger {

void ShowIdAsNumber(store::Field& idField, NumberSource source) {
    idField.OnGetText = [source](const store::Field& f, bool) -> std::string {
        if (f.IsNull()) return {};
        store::Value number =
            source.Table->Lookup(source.IdField, {f.AsValue()}, source.NumberField);
        return number.IsNull() ? std::string() : number.Str();
    };
    idField.OnSetText = [source](store::Field& f, std::string_view typed) {
        std::string number(TrimBlanks(typed));
        if (number.empty()) {
            f.Clear();
            return;
        }
        std::vector<store::Value> found = source.Table->LookupValues(
            source.NumberField, {store::Value(number)}, std::string(source.IdField) + ";Suspended");
        if (found.empty() || found[0].IsNull()) throw Exception(source.NotFound);
        if (!found[1].IsNull() && found[1].Bool()) throw Exception(source.Suspended);
        f.SetValue(found[0]);
    };
}

} // namespace corvane::ledger
