#pragma once

#include "store/FieldType.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane::store {

struct FieldDef {
    FieldDef() = default;
    FieldDef(std::string name, FieldType type, int size = 0, bool required = false,
             std::string displayFormat = {})
        : Name(std::move(name)), Type(type), Size(size), Required(required),
          DisplayFormat(std::move(displayFormat)) {}

    std::string Name;
    FieldType Type = FieldType::String;
    int Size = 0; // characters of a string field; 0 for every other kind
    bool Required = false;
    // How the field shows on screen and in reports; not stored in the database, so a cursor
    // takes it from the company's table definitions.
    std::string DisplayFormat;
};

enum IndexOption : unsigned {
    ixPrimary = 1u << 0,
    ixUnique = 1u << 1,
    ixNoCase = 1u << 2,     // strings compare without regard to case
    ixDescending = 1u << 3, // all fields descend, unless DescFields names some of them
};

struct IndexDef {
    IndexDef() = default;
    IndexDef(std::string name, std::vector<std::string> fields, unsigned options = 0,
             std::vector<std::string> descFields = {})
        : Name(std::move(name)), Fields(std::move(fields)), Options(options),
          DescFields(std::move(descFields)) {}

    std::string Name; // empty for the primary index
    std::vector<std::string> Fields;
    unsigned Options = 0;
    std::vector<std::string> DescFields; // with ixDescending: only these fields descend

    bool IsPrimary() const { return (Options & ixPrimary) != 0; }
    bool IsUnique() const { return (Options & (ixUnique | ixPrimary)) != 0; }
    bool IsNoCase() const { return (Options & ixNoCase) != 0; }
    bool IsDescending(std::string_view field) const;
};

// One table as it is created: its fields in order and all its indexes.
struct TableDef {
    std::string Name;
    std::vector<FieldDef> Fields;
    std::vector<IndexDef> Indexes;

    // Names compare without regard to case, as everywhere in the store.
    const FieldDef* FindField(std::string_view name) const;
    int FieldIndex(std::string_view name) const; // -1 when absent
    // The empty name finds the primary index.
    const IndexDef* FindIndex(std::string_view name) const;
    const IndexDef* PrimaryIndex() const;
};

bool SameName(std::string_view a, std::string_view b);

} // namespace corvane::store
