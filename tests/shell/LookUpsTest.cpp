#include "shell/lookups/LookUpCalcFields.h"
#include "shell/lookups/TdmLookUps.h"
#include "store/tables/CompanyDatabase.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Form.h"
#include "ui/HeadlessApp.h"

#include <gtest/gtest.h>

namespace corvane::testing {
namespace {

using shell::LookUp;
using shell::OneLineAddress;
using shell::SalesmanFullName;
using shell::TdmLookUps;
using store::Value;

TEST(LookUpCalcFields, AFullNameJoinsTheNamesThatAreSet) {
    EXPECT_EQ(SalesmanFullName("Ann", "Lee"), "Ann Lee");
    EXPECT_EQ(SalesmanFullName("", "Lee"), "Lee");
    EXPECT_EQ(SalesmanFullName("Ann", ""), "Ann");
    EXPECT_EQ(SalesmanFullName("  ", "Lee"), "Lee");
    EXPECT_EQ(SalesmanFullName("", ""), "");
}

TEST(LookUpCalcFields, AnAddressJoinsItsSetPartsWithStateAndPostalCodeTogether) {
    EXPECT_EQ(OneLineAddress("1 Main St", "Suite 2", "Toronto", "ON", "M5V 2T6", "Canada"),
              "1 Main St, Suite 2, Toronto, ON  M5V 2T6, Canada");
    EXPECT_EQ(OneLineAddress("1 Main St", "", "Toronto", "ON", "", ""), "1 Main St, Toronto, ON");
    EXPECT_EQ(OneLineAddress("", "", "Toronto", "", "M5V 2T6", "Canada"),
              "Toronto, M5V 2T6, Canada");
    EXPECT_EQ(OneLineAddress("", "PO Box 7", "", "", "", ""), "PO Box 7");
    EXPECT_EQ(OneLineAddress("", "", "", "", "", ""), "");
}

class LookUps : public UiCompanyTest {
protected:
    void TearDown() override {
        lookups.CloseAll();
        UiCompanyTest::TearDown();
    }

    void AddTax(int id, const std::string& name) {
        InsertRow("Tax", {{"TaxID", id},
                          {"TaxName", name},
                          {"Rate", 5.0},
                          {"TaxCode", "G"},
                          {"TaxDescription", name},
                          {"TaxGLAccountID", 1}});
    }
    static std::vector<std::string> FirstColumn(const ui::RowWindow& window) {
        std::vector<std::string> texts;
        for (const auto& row : window.Rows)
            texts.push_back(row.empty() ? std::string() : row[0]);
        return texts;
    }

    TdmLookUps lookups;
};

TEST_F(LookUps, EveryCursorOpensOnItsNamedIndex) {
    lookups.OpenIfClosed(db_);
    for (std::size_t i = 0; i < shell::LookUpCount; ++i) {
        auto which = static_cast<LookUp>(i);
        const auto& def = TdmLookUps::Definition(which);
        store::Table* cursor = lookups.Cursor(which);
        ASSERT_NE(cursor, nullptr) << def.TableName;
        EXPECT_TRUE(cursor->Active()) << def.TableName;
        EXPECT_EQ(cursor->Name, def.ComponentName);
        EXPECT_EQ(cursor->TableName(), def.TableName);
        EXPECT_EQ(cursor->IndexName(), def.IndexName);
    }
    EXPECT_EQ(lookups.tblSalesman(db_).IndexName(), "FullName");
    EXPECT_EQ(lookups.tblGLAcSub3(db_).IndexName(), "SubAccountName1");
    EXPECT_EQ(lookups.tblCustomer(db_).IndexName(), "");
}

TEST_F(LookUps, SalesmenShowTheirFullName) {
    InsertRow("Salesman", {{"SalesmanID", 1}, {"FirstName", "Ann"}, {"LastName", "Lee"}});
    InsertRow("Salesman", {{"SalesmanID", 2}, {"LastName", "Brown"}});
    InsertRow("Salesman", {{"SalesmanID", 3}, {"FirstName", "Cher"}});
    store::Table& salesman = lookups.tblSalesman(db_);
    auto fullName = [&](int id) {
        EXPECT_TRUE(salesman.Locate("SalesmanID", {Value(id)}));
        return salesman.FieldByName("FullName").AsString();
    };
    EXPECT_EQ(fullName(1), "Ann Lee");
    EXPECT_EQ(fullName(2), "Brown");
    EXPECT_EQ(fullName(3), "Cher");
}

TEST_F(LookUps, CustomersAndVendorsShowTheirAddressOnOneLine) {
    InsertRow("Customer", {{"CustomerID", 1},
                           {"CustomerNo", "C1"},
                           {"CustomerName", "Acme"},
                           {"AddressLine1", "1 Main St"},
                           {"City", "Springfield"},
                           {"StateProv", "IL"},
                           {"ZipCode", "62701"},
                           {"Country", "USA"}});
    AddCurrency(1, "Canadian Dollar");
    AddVendor(1, "V1", "Bolt");
    store::Table vendorRow(db_, "Vendor");
    vendorRow.Open();
    vendorRow.Edit();
    vendorRow.FieldByName("AddressLine2").SetAsString("Unit 4");
    vendorRow.FieldByName("StateProv").SetAsString("ON");
    vendorRow.Post();

    EXPECT_EQ(lookups.tblCustomer(db_).FieldByName("Address").AsString(),
              "1 Main St, Springfield, IL  62701, USA");
    EXPECT_EQ(lookups.tblVendor(db_).FieldByName("Address").AsString(), "Unit 4, ON");
}

TEST_F(LookUps, AComboListsTheRowsInTheOrderOfTheNamedIndex) {
    AddTax(1, "Zeta");
    AddTax(2, "alpha");
    AddTax(3, "Beta");
    InsertRow("Salesman", {{"SalesmanID", 1}, {"FirstName", "Zoe"}, {"LastName", "Adams"}});
    InsertRow("Salesman", {{"SalesmanID", 2}, {"FirstName", "Al"}, {"LastName", "Young"}});
    InsertRow("Salesman", {{"SalesmanID", 3}, {"FirstName", "Bea"}, {"LastName", "Adams"}});
    lookups.tblTax(db_);
    lookups.tblSalesman(db_);

    ui::Form form(app, "frmTest");
    ui::DBLookupComboBox cboTax(form, "cboTax", lookups.ListSource(LookUp::Tax), "TaxID",
                                "TaxName");
    ui::DBLookupComboBox cboSalesman(form, "cboSalesman", lookups.ListSource(LookUp::Salesman),
                                     "SalesmanID", "FullName");
    form.Show();
    EXPECT_EQ(FirstColumn(cboTax.ListRows(0, 10)),
              (std::vector<std::string>{"alpha", "Beta", "Zeta"}));
    // By last name, then first name.
    EXPECT_EQ(FirstColumn(cboSalesman.ListRows(0, 10)),
              (std::vector<std::string>{"Bea Adams", "Zoe Adams", "Al Young"}));
    cboTax.SetKeyValue(Value(3));
    EXPECT_EQ(cboTax.Text(), "Beta");
}

TEST_F(LookUps, AnOpenCursorIsLeftWhereItStands) {
    AddTax(1, "GST");
    AddTax(2, "PST");
    store::Table& tax = lookups.tblTax(db_);
    ASSERT_TRUE(tax.Locate("TaxID", {Value(2)}));
    EXPECT_EQ(&lookups.Open(LookUp::Tax, db_), &tax);
    EXPECT_EQ(tax.FieldByName("TaxName").AsString(), "PST");

    // A row another form added shows after the refresh that form asks for.
    AddTax(3, "HST");
    lookups.RefreshIfOpen(LookUp::Tax);
    EXPECT_EQ(tax.Lookup("TaxID", {Value(3)}, "TaxName").Str(), "HST");
}

TEST_F(LookUps, AfterACompanyChangeTheListsShowTheNewCompanyOnceReopened) {
    AddTax(1, "Old company tax");
    lookups.tblTax(db_);
    ui::Form form(app, "frmTest");
    ui::DBLookupComboBox cboTax(form, "cboTax", lookups.ListSource(LookUp::Tax), "TaxID",
                                "TaxName");
    form.Show();
    ASSERT_EQ(FirstColumn(cboTax.ListRows(0, 10)), (std::vector<std::string>{"Old company tax"}));

    // The company changes: the module's cursors go, the old database closes, another opens.
    lookups.CloseAll();
    EXPECT_EQ(lookups.Cursor(LookUp::Tax), nullptr);
    EXPECT_FALSE(lookups.IsOpen(LookUp::Tax));
    db_.Close();
    TempFolder otherFolder;
    store::tables::CreateCompanyDatabase(otherFolder.Path());
    store::Database other(session_, "otherDatabase");
    other.SetDirectory(otherFolder.Path());
    other.Open();
    {
        store::Table t(other, "Tax");
        t.Open();
        t.Insert();
        t.FieldByName("TaxID").SetAsInteger(1);
        t.FieldByName("TaxName").SetAsString("New company tax");
        t.FieldByName("Rate").SetAsFloat(5.0);
        t.FieldByName("TaxCode").SetAsString("N");
        t.FieldByName("TaxDescription").SetAsString("New");
        t.FieldByName("TaxGLAccountID").SetAsInteger(1);
        t.Post();
    }
    // Until a form opens what it needs, the list is empty rather than the old company's.
    EXPECT_TRUE(cboTax.ListRows(0, 10).Rows.empty());
    EXPECT_EQ(cboTax.Text(), "");

    lookups.tblTax(other);
    EXPECT_EQ(FirstColumn(cboTax.ListRows(0, 10)), (std::vector<std::string>{"New company tax"}));
    lookups.CloseAll();
    other.Close();
    db_.Open();
}

TEST_F(LookUps, ACursorClosedWithItsDatabaseIsMadeAnewOnReopen) {
    AddTax(1, "GST");
    lookups.tblTax(db_);
    // The database closes its cursors, the module's among them; the module is not told.
    db_.Close();
    EXPECT_FALSE(lookups.IsOpen(LookUp::Tax));
    db_.Open();
    store::Table& again = lookups.tblTax(db_);
    EXPECT_TRUE(again.Active());
    EXPECT_EQ(again.FieldByName("TaxName").AsString(), "GST");
    EXPECT_EQ(again.IndexName(), "TaxName1");
}

} // namespace
} // namespace corvane::testing
