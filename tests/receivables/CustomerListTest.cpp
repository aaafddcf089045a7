#include "receivables/customers/TfrmCustomers.h"

#include "core/Exception.h"
#include "reports/preview/RecordingReportOutput.h"
#include "shell/lookups/TdmLookUps.h"
#include "ui/FormDriver.h"
#include "ui/HeadlessApp.h"

#include <fstream>
#include <sstream>

using namespace corvane;
using namespace corvane::receivables;

namespace {

class CustomerListTest : public corvane::testing::UiCompanyTest {
protected:
    void AddCustomer(int id, const char* name, const char* line1, const char* line2,
                     const char* city, const char* state, const char* zip, const char* email) {
        InsertRow("Customer", {{"CustomerID", id},
                               {"CustomerNo", std::to_string(id)},
                               {"CustomerName", name},
                               {"AddressLine1", line1},
                               {"AddressLine2", line2},
                               {"City", city},
                               {"StateProv", state},
                               {"ZipCode", zip},
                               {"Country", "Canada"},
                               {"EMail", email},
                               {"CurrencyID", 1}});
    }
    TfrmCustomers& List() {
        auto& list = app.CreateForm<TfrmCustomers>(db_, lookUps);
        list.MapService = "https://maps.example.com";
        list.Show();
        return list;
    }
    shell::TdmLookUps lookUps;
};

} // namespace

TEST_F(CustomerListTest, MapClipboardAndMailTakeTheAddressPartsThatAreSet) {
    AddCustomer(1, "Aspen Homes", "12 Lakeshore Drive", "", "Toronto", "ON", "M5V 2T6",
                "sales@aspen.example.com");
    AddCustomer(2, "Birch Lumber", "88 Mill Road", "Unit 4", "Kingston", "", "K7K 1A1", "");
    AddCustomer(3, "Cedar Co", "", "", "", "", "", "cedar@example.com");
    TfrmCustomers& list = List();
    ui::FormDriver d(list);
    d.SelectRow("grdList", 0);
    EXPECT_EQ(list.MapAddress(), "12 Lakeshore Drive, Toronto");
    EXPECT_EQ(list.ClipboardAddress(),
              "Aspen Homes\n12 Lakeshore Drive\nToronto, ON  M5V 2T6\nCanada");
    d.Click("popMap");
    ASSERT_FALSE(desktop.Calls().empty());
    EXPECT_NE(desktop.Calls().back().find("https://maps.example.com/maps?q=12 Lakeshore Drive, "
                                          "Toronto"),
              std::string::npos);
    d.SelectRow("grdList", 1);
    EXPECT_EQ(list.MapAddress(), "88 Mill Road, Unit 4, Kingston");
    EXPECT_EQ(list.ClipboardAddress(),
              "Birch Lumber\n88 Mill Road\nUnit 4\nKingston  K7K 1A1\nCanada");

    // Every address of the rows shown, and the list stays where it stood.
    EXPECT_EQ(list.AllEMailAddresses(), "sales@aspen.example.com; cedar@example.com");
    EXPECT_EQ(list.tblCustomer.FieldByName("CustomerID").AsInteger(), 2);
    d.Click("mnuEmailAll");
    EXPECT_NE(desktop.Calls().back().find("mailto:?cc=&bcc=sales@aspen.example.com; "
                                          "cedar@example.com"),
              std::string::npos);
    list.tblCustomer.SetFilter("CustomerID = 3");
    list.tblCustomer.SetFiltered(true);
    EXPECT_EQ(list.AllEMailAddresses(), "cedar@example.com");
}

TEST_F(CustomerListTest, ExportForLabelsWritesTheAddressesOfTheRowsShownQuoted) {
    AddCustomer(1, "Aspen \"The\" Homes", "12 Lakeshore Drive", "", "Toronto", "ON", "M5V 2T6", "");
    AddCustomer(2, "Birch Lumber", "88 Mill Road", "Unit 4", "Kingston", "", "K7K 1A1", "");
    TfrmCustomers& list = List();
    reports::RecordingReportOutput output;
    reports::ReportOutput::Install(&output);
    const std::string path = folder_.Path() + "/labels.txt";
    output.AnswerSaveFile(path);
    ui::FormDriver d(list);
    d.SelectRow("grdList", 1);
    d.Click("mnuExport");
    reports::ReportOutput::Install(nullptr);
    std::ifstream in(path);
    std::stringstream text;
    text << in.rdbuf();
    EXPECT_EQ(text.str(),
              "\"Customer no.\",\"Contact\",\"Customer name\",\"Address line 1\","
              "\"Address line 2\",\"City\",\"Province\",\"Postal code\",\"Country\"\r\n"
              "\"1\",,\"Aspen \"\"The\"\" Homes\",\"12 Lakeshore Drive\",,\"Toronto\",\"ON\","
              "\"M5V 2T6\",\"Canada\"\r\n"
              "\"2\",,\"Birch Lumber\",\"88 Mill Road\",\"Unit 4\",\"Kingston\",,\"K7K 1A1\","
              "\"Canada\"\r\n");
    EXPECT_EQ(list.tblCustomer.FieldByName("CustomerID").AsInteger(), 2);
}
