#include "banking/banks/TfrmBankBook.h"
#include "banking/banks/TfrmBanks.h"
#include "program/ProgramForms.h"
#include "receivables/customers/TfrmCustomer.h"
#include "receivables/customers/TfrmCustomers.h"
#include "shell/main/FormRegistry.h"
#include "shell/patterns/ListForm.h"
#include "support/RegistryForms.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

#include <set>
#include <string>

#include <gtest/gtest.h>

namespace corvane::testing {
namespace {

// The program's forms over a registry, with the rights a test refuses.
class RefusingForms : public RegistryForms {
public:
    using RegistryForms::RegistryForms;
    bool CheckAccess(const std::string& right, const std::string&) override {
        asked.insert(right);
        return !refused.count(right);
    }
    std::set<std::string> refused;
    std::set<std::string> asked;
};

// Lists and look-up buttons open the program's other forms through the one form service, after
// the user's right is checked.
class ListOpening : public UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", "Opening Co"},
                              {"FiscalYear", 2017},
                              {"DefaultPeriodYYYY", 2017},
                              {"DefaultPeriodPP", 3}});
        AddCurrency(1, "Canadian Dollars");
        for (int id : {7, 8})
            InsertRow("Customer", {{"CustomerID", id},
                                   {"CustomerNo", std::to_string(id)},
                                   {"CustomerName", "Customer " + std::to_string(id)},
                                   {"CurrencyID", 1}});
        InsertRow("Bank", {{"BankID", 3}, {"BankName", "A Bank"}, {"CurrencyID", 1}});
        InsertRow("Bank", {{"BankID", 4}, {"BankName", "B Bank"}, {"CurrencyID", 1}});
        program::RegisterProgramForms(registry);
    }
    ui::Form* Open(std::string_view name) { return forms.OpenForm(name); }

    shell::FormRegistry registry;
    RefusingForms forms{app, db_, registry};
};

TEST_F(ListOpening, ACustomersInvoicesOpenOnThatCustomerAndARefusedRightOpensNothing) {
    auto* customers = dynamic_cast<receivables::TfrmCustomers*>(Open("frmCustomers"));
    ASSERT_NE(customers, nullptr);
    customers->Show();
    ui::FormDriver d(*customers);
    d.SelectRow("grdList", 1);
    ASSERT_EQ(customers->tblCustomer.FieldByName("CustomerID").AsInteger(), 8);

    forms.refused.insert("ARInvoices");
    d.Click("mnuInvoices");
    EXPECT_TRUE(forms.asked.count("ARInvoices"));
    EXPECT_EQ(app.FindForm("frmARInvoices"), nullptr);

    forms.refused.clear();
    d.Click("mnuInvoices");
    auto* invoices = dynamic_cast<shell::ListForm*>(app.FindForm("frmARInvoices"));
    ASSERT_NE(invoices, nullptr);
    EXPECT_TRUE(invoices->Visible());
    EXPECT_TRUE(invoices->MainDataSet().Filtered());
    EXPECT_EQ(invoices->MainDataSet().Filter().rfind("(CustomerID = 8)", 0), 0u)
        << invoices->MainDataSet().Filter();
    EXPECT_TRUE(invoices->mnuFilter.Checked());
}

TEST_F(ListOpening, TheBankBookOpensOnTheBankTheListStandsOn) {
    auto* banks = dynamic_cast<banking::TfrmBanks*>(Open("frmBanks"));
    ASSERT_NE(banks, nullptr);
    banks->Show();
    ui::FormDriver d(*banks);
    d.SelectRow("grdList", 1);
    d.Click("mnuBankBook");
    auto* book = dynamic_cast<banking::TfrmBankBook*>(app.FindForm("frmBankBook"));
    ASSERT_NE(book, nullptr);
    EXPECT_TRUE(book->Visible());
    EXPECT_EQ(book->cboBank.KeyValue(), store::Value(std::int64_t{4}));
}

TEST_F(ListOpening, ALookUpButtonOpensItsListOnlyWithTheRight) {
    auto* customer = dynamic_cast<receivables::TfrmCustomer*>(Open("frmCustomer"));
    ASSERT_NE(customer, nullptr);
    forms.refused.insert("Currencies");
    customer->btnCurrencies.OnClick();
    EXPECT_EQ(app.FindForm("frmCurrencies"), nullptr);
    forms.refused.clear();
    customer->btnCurrencies.OnClick();
    ui::Form* currencies = app.FindForm("frmCurrencies");
    ASSERT_NE(currencies, nullptr);
    EXPECT_TRUE(currencies->Visible());
}

} // namespace
} // namespace corvane::testing
