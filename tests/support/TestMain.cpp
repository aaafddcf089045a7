#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <ctime>

// Locale and time zone are pinned so that formats and dates do not depend on the machine.
int main(int argc, char** argv) {
    setenv("TZ", "UTC", 1);
    tzset();
    setlocale(LC_ALL, "C");
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
