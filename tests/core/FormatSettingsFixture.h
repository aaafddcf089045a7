#pragma once

#include "core/FormatSettings.h"

#include <gtest/gtest.h>

// Tests that change the process's regional settings get them back as they were afterwards.
class FormatSettingsFixture : public ::testing::Test {
protected:
    void SetUp() override { saved_ = corvane::ProcessFormatSettings(); }
    void TearDown() override { corvane::ProcessFormatSettings() = saved_; }

    corvane::FormatSettings& Settings() { return corvane::ProcessFormatSettings(); }

private:
    corvane::FormatSettings saved_;
};
