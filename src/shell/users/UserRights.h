#pragma once

#include <span>
#include <string_view>

namespace corvane::shell {

// The tabs of the user form, one per system of the program.
enum class RightsPage { General, AP, AR, GL, Inventory, TimeBilling, SalesAnalysis };

// A tab of rights: Key names its components ("tabTimeBilling", "btnAllTimeBilling").
struct RightsPageInfo {
    RightsPage Page;
    std::string_view Key;
    std::string_view Caption;
};

// One access right: the boolean field of Users that holds it, the caption of its check box on the
// user form and the tab it stands on.
struct UserRight {
    std::string_view Field;
    std::string_view Caption;
    RightsPage Page;
};

// The rights a user can be given. The menu guards, the user form and its tests all read this one
// table, so that a right is named in one place only.
class UserRights {
public:
    // Every right, grouped by tab in the order the form shows them.
    static std::span<const UserRight> All();
    // The tabs in the order the form shows them.
    static std::span<const RightsPageInfo> Pages();
    static const RightsPageInfo& PageInfo(RightsPage page);
    // The right held in field (names compare without regard to case, as the store's do); null
    // when no right has that field.
    static const UserRight* Find(std::string_view field);
};

} // namespace corvane::shell
