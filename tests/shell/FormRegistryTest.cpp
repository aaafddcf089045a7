#include "shell/main/FormRegistry.h"

#include "ui/Form.h"

#include <stdexcept>

#include <gtest/gtest.h>

namespace corvane::shell {
namespace {

TEST(FormRegistry, MenuPathsCompareWhateverTheAcceleratorsCaseBlanksAndDots) {
    EXPECT_EQ(FormRegistry::NormalMenuPath("&GL, &Accounts..."), "gl, accounts");
    EXPECT_EQ(FormRegistry::NormalMenuPath("  gl ,accounts "), "gl, accounts");
    // The levels stay apart.
    EXPECT_NE(FormRegistry::NormalMenuPath("GL Accounts"), "gl, accounts");
    EXPECT_EQ(FormRegistry::NormalMenuPath("R&&D, &Budget"), "r&d, budget");
}

TEST(FormRegistry, FormsAreFoundByTheirExactComponentName) {
    FormRegistry registry;
    int made = 0;
    registry.Register("frmA", [&made](FormContext&) -> ui::Form& {
        ++made;
        throw std::logic_error("not made in this test");
    });
    EXPECT_NE(registry.Find("frmA"), nullptr);
    EXPECT_EQ(registry.Find("frma"), nullptr);
    EXPECT_EQ(registry.Find("frmB"), nullptr);
    EXPECT_EQ(registry.FormNames(), std::vector<std::string>{"frmA"});
    EXPECT_EQ(made, 0); // registering makes nothing
}

} // namespace
} // namespace corvane::shell
