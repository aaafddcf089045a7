#pragma once

#include "support/CompanyFixture.h"
#include "ui/Application.h"
#include "ui/HeadlessDesktop.h"
#include "ui/HeadlessDialogs.h"
#include "ui/HeadlessHost.h"

#include <gtest/gtest.h>

namespace corvane::testing {

// The program without a screen: scripted modal forms, scripted answers, a desktop that records.
struct HeadlessApp {
    ui::HeadlessHost host;
    ui::HeadlessDialogs dialogs;
    ui::HeadlessDesktop desktop;
    ui::Application app{host, dialogs, desktop};
};

class UiTest : public ::testing::Test, protected HeadlessApp {};

// A fresh company as well, for forms on real tables.
class UiCompanyTest : public CompanyTest, protected HeadlessApp {
protected:
    void AddCurrency(int id, const std::string& name) {
        InsertRow("Currency", {{"CurrencyID", id},
                               {"CurrencyName", name},
                               {"APGLAccountID", 1},
                               {"APDiscGLAccountID", 1},
                               {"ARGLAccountID", 1},
                               {"ARDiscGLAccountID", 1}});
    }
    void AddVendor(int id, const std::string& no, const std::string& name, int currency = 1) {
        InsertRow(
            "Vendor",
            {{"VendorID", id}, {"VendorNo", no}, {"VendorName", name}, {"CurrencyID", currency}});
    }
};

} // namespace corvane::testing
