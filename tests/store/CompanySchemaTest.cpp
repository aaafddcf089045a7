#include "store/Schema.h"
#include "store/sql/Connection.h"
#include "store/tables/CompanyDatabase.h"
#include "store/tables/CompanyTables.h"
#include "support/CompanyFixture.h"

#include <set>

using namespace corvane::store;
using corvane::testing::CompanyTest;

namespace {

std::string Describe(const FieldDef& f) {
    return f.Name + ":" + std::string(StoredTypeName(f.Type)) + "(" + std::to_string(f.Size) + ")" +
           (f.Required ? " required" : "");
}

std::string Describe(const IndexDef& ix) {
    std::string out = (ix.IsPrimary() ? std::string("<primary>") : ix.Name) + " [";
    for (const auto& f : ix.Fields)
        out += f + (ix.IsDescending(f) ? " desc" : "") + ",";
    out += "]";
    if (ix.IsUnique()) out += " unique";
    if (ix.IsNoCase()) out += " nocase";
    return out;
}

using CompanySchema = CompanyTest;

// The tables of a new company, read back from the file, are exactly the definitions: every
// field in order with its type, size and required flag, every index with its fields, their
// directions and its options.
TEST_F(CompanySchema, EveryTableAndIndexMatchesItsDefinition) {
    auto defs = tables::CompanyTables();
    ASSERT_EQ(defs.size(), 61u);
    EXPECT_EQ(db_.TableNames().size(), 61u);
    std::set<std::string> names;
    for (const TableDef* def : defs) {
        SCOPED_TRACE(def->Name);
        EXPECT_TRUE(names.insert(def->Name).second) << "defined twice";
        const TableDef& stored = db_.TableDefinition(Database::MainSchema, def->Name);
        ASSERT_EQ(stored.Fields.size(), def->Fields.size());
        for (std::size_t i = 0; i < def->Fields.size(); ++i)
            EXPECT_EQ(Describe(stored.Fields[i]), Describe(def->Fields[i]));
        ASSERT_EQ(stored.Indexes.size(), def->Indexes.size());
        for (std::size_t i = 0; i < def->Indexes.size(); ++i)
            EXPECT_EQ(Describe(stored.Indexes[i]), Describe(def->Indexes[i]));
        // Every index names fields of its table.
        for (const auto& ix : def->Indexes)
            for (const auto& f : ix.Fields)
                EXPECT_NE(def->FindField(f), nullptr) << ix.Name << "." << f;
    }
}

TEST_F(CompanySchema, TablesAreCreatedInTheirFixedOrder) {
    auto defs = tables::CompanyTables();
    Statement s(db_.Conn(),
                "SELECT name FROM sqlite_schema WHERE type = 'table' AND name <> 'CorvaneAutoInc' "
                "ORDER BY rowid");
    std::vector<std::string> created;
    while (s.Step())
        created.push_back(s.ColumnValue(0, FieldType::String).Str());
    ASSERT_EQ(created.size(), defs.size());
    for (std::size_t i = 0; i < defs.size(); ++i)
        EXPECT_EQ(created[i], defs[i]->Name);
    EXPECT_EQ(defs.front()->Name, "APCheq");
    EXPECT_EQ(defs.back()->Name, "Warehse");
}

TEST_F(CompanySchema, AFolderThatHoldsACompanyIsNotCreatedAgain) {
    try {
        tables::CreateCompanyDatabase(folder_.Path());
        FAIL() << "a second company was made over the first";
    } catch (const EngineError& e) {
        EXPECT_EQ(e.ErrorCode(), errTableExists);
    }
    EXPECT_TRUE(Database::IsDatabaseFolder(folder_.Path()));
}

} // namespace
