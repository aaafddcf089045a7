#include "timebilling/forms/NameBox.h"

#include "core/Exception.h"
#include "core/Text.h"
#include "store/Table.h"

namespace corvane::timebilling {

void ShowIdAsName(store::Field& idField, store::Table& table, std::string idName,
                  std::string nameField, std::string notFound) {
    idField.OnGetText = [&table, idName, nameField](const store::Field& f, bool) -> std::string {
        if (f.IsNull()) return {};
        store::Value name = table.Lookup(idName, {f.AsValue()}, nameField);
        return name.IsNull() ? std::string() : name.Str();
    };
    idField.OnSetText = [&table, idName, nameField, notFound](store::Field& f,
                                                              std::string_view typed) {
        std::string name(TrimBlanks(typed));
        if (name.empty()) {
            f.Clear();
            return;
        }
        store::Table search(table.OwnerDatabase(), table.TableName());
        search.Open();
        if (!search.Locate(nameField, {store::Value(name)}, {true})) throw Exception(notFound);
        f.SetValue(search.FieldByName(idName).AsValue());
    };
}

} // namespace corvane::timebilling
