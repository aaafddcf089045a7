#include "shell/lookups/LookUpCalcFields.h"

#include "core/Text.h"
#include "store/Table.h"

#include <initializer_list>

namespace corvane::shell {

namespace {

// Parts of blanks alone count as not set: a field cleared by typing spaces is as good as empty.
std::string JoinSet(std::initializer_list<std::string_view> parts, std::string_view separator) {
    std::string joined;
    for (std::string_view part : parts) {
        part = TrimBlanks(part);
        if (part.empty()) continue;
        if (!joined.empty()) joined += separator;
        joined += part;
    }
    return joined;
}

} // namespace

std::string SalesmanFullName(std::string_view firstName, std::string_view lastName) {
    return JoinSet({firstName, lastName}, " ");
}

std::string OneLineAddress(std::string_view line1, std::string_view line2, std::string_view city,
                           std::string_view state, std::string_view postalCode,
                           std::string_view country) {
    std::string statePostal = JoinSet({state, postalCode}, "  ");
    return JoinSet({line1, line2, city, statePostal, country}, ", ");
}

void AddSalesmanFullName(store::Table& salesman) {
    salesman.AddCalculatedField("FullName", store::FieldType::String, 61);
    salesman.OnCalcFields = [](store::DataSet& ds) {
        ds.FieldByName("FullName")
            .SetAsString(SalesmanFullName(ds.FieldByName("FirstName").AsString(),
                                          ds.FieldByName("LastName").AsString()));
    };
}

void AddOneLineAddress(store::Table& customerOrVendor) {
    // Room for every part at full length and the separators between them.
    customerOrVendor.AddCalculatedField("Address", store::FieldType::String, 200);
    customerOrVendor.OnCalcFields = [](store::DataSet& ds) {
        auto text = [&ds](const char* name) { return ds.FieldByName(name).AsString(); };
        ds.FieldByName("Address").SetAsString(
            OneLineAddress(text("AddressLine1"), text("AddressLine2"), text("City"),
                           text("StateProv"), text("ZipCode"), text("Country")));
    };
}

} // namespace corvane::shell
