#include <QApplication>

#include <gtest/gtest.h>

#include <memory>

namespace {

// One QApplication for the whole run, made before the first test; windows draw offscreen.
class QtApplicationEnvironment : public ::testing::Environment {
public:
    void SetUp() override {
        if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
        app_ = std::make_unique<QApplication>(argc_, argv_);
    }
    void TearDown() override { app_.reset(); }

private:
    int argc_ = 1;
    char name_[16] = "desktop_tests";
    char* argv_[2] = {name_, nullptr};
    std::unique_ptr<QApplication> app_;
};

[[maybe_unused]] auto* const environment =
    ::testing::AddGlobalTestEnvironment(new QtApplicationEnvironment);

} // namespace
