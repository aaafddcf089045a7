#include "cli/FormRegistry.h"

#include <gtest/gtest.h>

namespace corvane::cli {
namespace {

TEST(FormRegistry, MenuPathsMatchWhateverTheAcceleratorsCaseBlanksAndDots) {
    FormRegistry registry;
    registry.RegisterMenu("&GL, &Accounts...", "frmAccounts");
    EXPECT_EQ(registry.FormOfMenu("GL, Accounts"), "frmAccounts");
    EXPECT_EQ(registry.FormOfMenu("  gl ,accounts "), "frmAccounts");
    EXPECT_EQ(registry.FormOfMenu("GL, Accounts..."), "frmAccounts");
    // The levels stay apart: neither a shorter path nor one joined differently matches.
    EXPECT_EQ(registry.FormOfMenu("GL"), "");
    EXPECT_EQ(registry.FormOfMenu("GL Accounts"), "");
    EXPECT_EQ(registry.FormOfMenu("GL, Accounts, More"), "");
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

TEST(FormRegistry, TheProgramRegistersTheDemonstrationUsers) {
    FormRegistry registry;
    RegisterProgramForms(registry);
    EXPECT_NE(registry.Find("frmDemoUsers"), nullptr);
    EXPECT_EQ(registry.FormOfMenu("Security, Users (demo)"), "frmDemoUsers");
}

} // namespace
} // namespace corvane::cli
