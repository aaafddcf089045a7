#include "store/TableDef.h"

#include <cctype>

namespace corvane::store {

bool SameName(std::string_view a, std::string_view b) {
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i)
        if (std::tolower(static_cast<unsigned char>(a[i])) !=
            std::tolower(static_cast<unsigned char>(b[i])))
            return false;
    return true;
}

bool IndexDef::IsDescending(std::string_view field) const {
    if ((Options & ixDescending) == 0) return false;
    if (DescFields.empty()) return true;
    for (const auto& f : DescFields)
        if (SameName(f, field)) return true;
    return false;
}

int TableDef::FieldIndex(std::string_view name) const {
    for (std::size_t i = 0; i < Fields.size(); ++i)
        if (SameName(Fields[i].Name, name)) return static_cast<int>(i);
    return -1;
}

const FieldDef* TableDef::FindField(std::string_view name) const {
    int i = FieldIndex(name);
    return i < 0 ? nullptr : &Fields[static_cast<std::size_t>(i)];
}

const IndexDef* TableDef::FindIndex(std::string_view name) const {
    if (name.empty()) return PrimaryIndex();
    for (const auto& ix : Indexes)
        if (!ix.IsPrimary() && SameName(ix.Name, name)) return &ix;
    return nullptr;
}

const IndexDef* TableDef::PrimaryIndex() const {
    for (const auto& ix : Indexes)
        if (ix.IsPrimary()) return &ix;
    return nullptr;
}

} // namespace corvane::store
