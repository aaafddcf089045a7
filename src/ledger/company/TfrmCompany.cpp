#include "ledger/company/TfrmCompany.h"

#include "core/Exception.h"
#include "ledger/company/CompanyPeriodFields.h"
#include "store/Query.h"
#include "ui/Layout.h"

#include <array>

namespace corvane::ledger {

namespace {

// The documents that tie a company to its fiscal year, in the order they are looked for, and
// what the refusal to move the year forward says of each.
struct YearTie {
    const char* Table;
    const char* Exists;
};
constexpr std::array kYearTies{
    YearTie{"JV", "Journal Voucher(s) exist."},
    YearTie{"APInv", "AP Invoice(s) exist."},
    YearTie{"ARInv", "AR Invoice(s) exist."},
    YearTie{"GLHist", "GL History exists."},
};

bool HasRows(store::Database& db, const std::string& table) {
    store::Query query(db);
    // The table is one of the names above.
    query.SetSQL("SELECT COUNT(*) AS N FROM " + table);
    query.Open();
    return query.FieldByName("N").AsInteger() > 0;
}

// The version mark a database of this program carries.
constexpr const char* kApplicationVersion = "2017.8";

} // namespace

TfrmCompany::TfrmCompany(ui::Application& app, store::Database& db)
    : EntryForm(app, "frmCompany", db, "Company", "tblCompany"),
      salesAccount_(editDfltSalesGLAccount, EntryTable, "DfltSalesGLAccountID", db),
      cogsAccount_(editDfltCOGSGLAccount, EntryTable, "DfltCOGSGLAccountID", db),
      inventoryAccount_(editDfltInventoryGLAccount, EntryTable, "DfltInventoryGLAccountID", db) {
    using namespace ui;
    Caption = "Your Company";
    PrepareCompanyPeriodFields(EntryTable);
    EntryTable.FieldByName("CompanyName").DisplayLabel = "Company Name";
    tabCompany.SetLayout(Column{
        FormRow{"Company Name:", editCompanyName},
        FormRow{"Address:", editAddressLine1},
        FormRow{"", editAddressLine2},
        FormRow{"", editAddressLine3},
        FormRow{"Phone:", editPhone},
        FormRow{"Tax No.:", editTaxNo},
    });
    tabPeriods.SetLayout(Column{
        FormRow{"Fiscal Year:", editFiscalYear},
        FormRow{"Default Period:", Row{editDefaultPeriodYYYY, editDefaultPeriodPP}},
        FormRow{"Warn if before:", Row{editWPeriodFromYYYY, editWPeriodFromPP}},
        FormRow{"Warn if after:", Row{editWPeriodToYYYY, editWPeriodToPP}},
        FormRow{"Error if before:", Row{editEPeriodFromYYYY, editEPeriodFromPP}},
        FormRow{"Error if after:", Row{editEPeriodToYYYY, editEPeriodToPP}},
    });
    tabDefaults.SetLayout(Column{
        FormRow{"Default Sales GL Account:", editDfltSalesGLAccount},
        FormRow{"Default Cost of Goods Sold GL Account:", editDfltCOGSGLAccount},
        FormRow{"Default Inventory GL Account:", editDfltInventoryGLAccount},
    });
    SetLayout(Column{pgcCompany, ButtonRow{btnOK, btnCancel}});

    EntryTable.FieldByName("FiscalYear").OnValidate = [this](store::Field& f) {
        CheckForwardYear(f);
    };
    EntryTable.OnNewRecord = [this](store::DataSet&) { NewCompanyRow(); };
    EntryTable.AfterPost = [this](store::DataSet& ds) {
        loadedYear_ = ds.FieldByName("FiscalYear").AsInteger();
    };
    EntryTable.BeforePost = [this](store::DataSet&) {
        // An account chosen here may have been deleted by another user since.
        salesAccount_.CheckStillExists();
        cogsAccount_.CheckStillExists();
        inventoryAccount_.CheckStillExists();
    };
    OnShow = [this] { ShowCompany(); };
}

void TfrmCompany::ShowCompany() {
    pgcCompany.SetActivePage(tabCompany);
    if (EntryTable.State() == store::DataSetState::Browse) {
        EntryTable.Refresh();
        // A company whose row is lost or never made gets one here.
        if (EntryTable.IsEmpty()) EntryTable.Insert();
    }
    loadedYear_ = EntryTable.FieldByName("FiscalYear").AsInteger();
}

void TfrmCompany::NewCompanyRow() {
    EntryTable.FieldByName("CompanyNo").SetAsInteger(1);
    EntryTable.FieldByName("ApplicationVersion").SetAsString(kApplicationVersion);
    EntryTable.FieldByName("ARInvoiceStyle").SetAsInteger(0);
    EntryTable.FieldByName("ARInvoiceCopies").SetAsInteger(1);
}

void TfrmCompany::CheckForwardYear(store::Field& fiscalYear) {
    // Going back reopens a closed year and is always allowed; the year end moves it forward
    // itself.
    if (YearEndRunning || fiscalYear.IsNull() || fiscalYear.AsInteger() <= loadedYear_) return;
    for (const YearTie& tie : kYearTies)
        if (HasRows(EntryTable.OwnerDatabase(), tie.Table))
            throw Exception(
                std::string("Fiscal Year cannot be changed forward by typing here...\n") +
                tie.Exists +
                "\nPress Esc to undo.\nUse the Year-End button to move the year "
                "forward");
}

std::string TfrmCompany::KeyViolationMessage() const {
    return "Your Company information already exists";
}

} // namespace corvane::ledger
