#include "shell/main/FormRegistry.h"

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

} // namespace
} // namespace corvane::shell
