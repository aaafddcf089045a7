#include "shell/users/UserRights.h"
#include "shell/main/MainMenuEntries.h"
#include "store/tables/CompanyTables.h"

#include <gtest/gtest.h>

#include <set>
#include <string>

using corvane::shell::UserRights;
using corvane::store::FieldType;

// The form, the menu guards and the table must agree on every right, or a right would be granted
// under one name and tested under another.
TEST(UserRights, RightsAreExactlyTheBooleansOfUsersAndCoverEveryMenuGuard) {
    const auto& users = corvane::store::tables::Users();
    std::set<std::string> fields;
    for (const auto& right : UserRights::All()) {
        const auto* field = users.FindField(right.Field);
        ASSERT_NE(field, nullptr) << right.Field;
        EXPECT_EQ(field->Type, FieldType::Boolean) << right.Field;
        EXPECT_TRUE(fields.insert(std::string(right.Field)).second) << "twice: " << right.Field;
    }
    for (const auto& field : users.Fields) {
        if (field.Type == FieldType::Boolean) {
            EXPECT_NE(UserRights::Find(field.Name), nullptr) << field.Name << " is no right";
        }
    }
    EXPECT_EQ(fields.size(), 44u);
    for (const auto& entry : corvane::shell::MainMenuEntries())
        if (!entry.Right.empty()) {
            EXPECT_NE(UserRights::Find(entry.Right), nullptr) << entry.Path;
        }
    EXPECT_EQ(UserRights::Find("password"), nullptr);
}
