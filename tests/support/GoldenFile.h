#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace corvane::testing {

// Compares the text with the stored one at tests/<folder>/golden/<name>. With
// CORVANE_UPDATE_GOLDEN=1 the run writes it afresh instead and the test is skipped: read the
// difference before keeping it.
inline void CompareWithGolden(const std::string& folder, const std::string& name,
                              const std::string& actual) {
    const std::filesystem::path path =
        std::filesystem::path(CORVANE_TESTS_DIR) / folder / "golden" / name;
    const char* update = std::getenv("CORVANE_UPDATE_GOLDEN");
    if (update && std::string(update) == "1") {
        std::ofstream(path, std::ios::binary) << actual;
        GTEST_SKIP() << "wrote " << path;
    }
    std::ifstream in(path, std::ios::binary);
    ASSERT_TRUE(in) << "no expected pages at " << path << "; run with CORVANE_UPDATE_GOLDEN=1";
    std::stringstream expected;
    expected << in.rdbuf();
    EXPECT_EQ(actual, expected.str()) << "pages differ from " << path;
}

} // namespace corvane::testing
