#include "core/Exception.h"
#include "support/CompanyFixture.h"

using namespace corvane;
using namespace corvane::store;
using corvane::testing::CompanyTest;

namespace {

void AddVendor(Table& t, int id, const std::string& no, const std::string& name) {
    t.Insert();
    t.FieldByName("VendorID").SetAsInteger(id);
    t.FieldByName("VendorNo").SetAsString(no);
    t.FieldByName("VendorName").SetAsString(name);
    t.FieldByName("CurrencyID").SetAsInteger(1);
    t.Post();
}

int ErrorCodeOf(const std::function<void()>& f) {
    try {
        f();
    } catch (const EngineError& e) {
        return e.ErrorCode();
    }
    return 0;
}

using TableEdit = CompanyTest;

TEST_F(TableEdit, KeyViolationKeepsTheInsertSoTheUserCanCorrectIt) {
    Table t(db_, "Vendor");
    t.Open();
    AddVendor(t, 1, "100", "Acme");
    t.Insert();
    t.FieldByName("VendorID").SetAsInteger(1);
    t.FieldByName("VendorNo").SetAsString("101");
    t.FieldByName("VendorName").SetAsString("Other");
    t.FieldByName("CurrencyID").SetAsInteger(1);
    EXPECT_EQ(ErrorCodeOf([&] { t.Post(); }), errKeyViolation);
    EXPECT_EQ(t.State(), DataSetState::Insert);
    EXPECT_EQ(t.FieldByName("VendorName").AsString(), "Other");
    t.FieldByName("VendorID").SetAsInteger(2);
    t.Post();
    EXPECT_EQ(t.State(), DataSetState::Browse);
    EXPECT_EQ(t.RecordCount(), 2);

    // The same in an edit: the record stays in edit with the user's values.
    t.Edit();
    t.FieldByName("VendorID").SetAsInteger(1);
    EXPECT_EQ(ErrorCodeOf([&] { t.Post(); }), errKeyViolation);
    EXPECT_EQ(t.State(), DataSetState::Edit);
    t.Cancel();
    EXPECT_EQ(t.FieldByName("VendorID").AsInteger(), 2);
}

TEST_F(TableEdit, BadValuesAreRefusedAndChangeNothing) {
    Table t(db_, "Vendor");
    t.Open();
    AddVendor(t, 1, "100", "Acme");
    t.Edit();
    // VendorNo is a string of 10 characters.
    EXPECT_EQ(ErrorCodeOf([&] { t.FieldByName("VendorNo").SetAsString("12345678901"); }),
              errStringTooLong);
    EXPECT_EQ(t.FieldByName("VendorNo").AsString(), "100");
    EXPECT_EQ(ErrorCodeOf([&] { t.FieldByName("NoSuchField"); }), errFieldNotFound);
    EXPECT_EQ(ErrorCodeOf([&] { t.FieldByName("CurrencyID").SetAsString("abc"); }),
              errInvalidValue);
    EXPECT_EQ(ErrorCodeOf([&] { t.FieldByName("CurrencyID").SetAsInteger(5'000'000'000LL); }),
              errValueOutOfRange);
    EXPECT_EQ(t.FieldByName("CurrencyID").AsInteger(), 1);
    t.Cancel();
    // Writing outside edit or insert is refused.
    EXPECT_EQ(ErrorCodeOf([&] { t.FieldByName("VendorName").SetAsString("x"); }), errDataSetState);

    // A required field left null: the engine's own message, and nothing written.
    t.Insert();
    t.FieldByName("VendorID").SetAsInteger(2);
    t.FieldByName("VendorNo").SetAsString("200");
    try {
        t.Post();
        FAIL() << "a null required field was posted";
    } catch (const EngineError& e) {
        EXPECT_EQ(e.ErrorCode(), errRequiredField);
        EXPECT_NE(std::string(e.what()).find("must have a value"), std::string::npos);
    }
    t.Cancel();
    EXPECT_EQ(CountRows("Vendor"), 1);
}

TEST_F(TableEdit, NullStaysDistinctFromZeroAndEmpty) {
    Table t(db_, "Vendor");
    t.Open();
    AddVendor(t, 1, "100", "Acme");
    t.Edit();
    t.FieldByName("Phone").SetAsString("");
    t.FieldByName("DiscPC").SetAsFloat(0.0);
    t.Post();
    t.Refresh();
    EXPECT_FALSE(t.FieldByName("Phone").IsNull());
    EXPECT_FALSE(t.FieldByName("DiscPC").IsNull());
    EXPECT_TRUE(t.FieldByName("Fax").IsNull());
    EXPECT_EQ(t.FieldByName("Fax").AsString(), "");
    t.Edit();
    t.FieldByName("Phone").Clear();
    t.Post();
    t.Refresh();
    EXPECT_TRUE(t.FieldByName("Phone").IsNull());
}

TEST_F(TableEdit, EventsCarryTheRules) {
    Table t(db_, "Vendor");
    std::vector<std::string> log;
    t.OnNewRecord = [&](DataSet& ds) {
        log.push_back("new");
        ds.FieldByName("CurrencyID").SetAsInteger(1);
    };
    t.BeforePost = [&](DataSet& ds) {
        log.push_back("beforepost");
        if (ds.FieldByName("VendorName").AsString() == "refuse") Abort();
        if (ds.FieldByName("VendorName").AsString() == "complain")
            throw Exception("Name not allowed");
    };
    t.AfterPost = [&](DataSet&) { log.push_back("afterpost"); };
    t.BeforeDelete = [&](DataSet&) { Abort(); };
    t.Open();

    // Defaults set by OnNewRecord are not the user's changes.
    t.Insert();
    EXPECT_FALSE(t.Modified());
    EXPECT_EQ(t.FieldByName("CurrencyID").AsInteger(), 1);
    t.FieldByName("VendorID").SetAsInteger(1);
    t.FieldByName("VendorNo").SetAsString("1");
    t.FieldByName("VendorName").SetAsString("refuse");
    EXPECT_TRUE(t.Modified());
    // An abort in a Before event stops silently and leaves the state as it was.
    EXPECT_THROW(t.Post(), EAbort);
    EXPECT_EQ(t.State(), DataSetState::Insert);
    t.FieldByName("VendorName").SetAsString("complain");
    EXPECT_THROW(t.Post(), Exception);
    EXPECT_EQ(t.State(), DataSetState::Insert);
    t.FieldByName("VendorName").SetAsString("Acme");
    t.Post();
    EXPECT_EQ(log, (std::vector<std::string>{"new", "beforepost", "beforepost", "beforepost",
                                             "afterpost"}));
    EXPECT_THROW(t.Delete(), EAbort);
    EXPECT_EQ(t.RecordCount(), 1);

    // A field's OnValidate may refuse a value; the old value stays.
    t.FieldByName("VendorName").OnValidate = [](Field& f) {
        if (f.AsString().empty()) throw Exception("Field 'Name' must have a value");
    };
    t.Edit();
    EXPECT_THROW(t.FieldByName("VendorName").SetAsString(""), Exception);
    EXPECT_EQ(t.FieldByName("VendorName").AsString(), "Acme");
    t.Cancel();
}

// A calculated "Label" of a vendor cursor: its number and name.
void AddLabelField(Table& t) {
    t.AddCalculatedField("Label", FieldType::String, 60);
    t.OnCalcFields = [](DataSet& ds) {
        ds.FieldByName("Label").SetAsString(ds.FieldByName("VendorNo").AsString() + ": " +
                                            ds.FieldByName("VendorName").AsString());
    };
}

TEST_F(TableEdit, CalculatedAndLookupFieldsFollowTheRecord) {
    InsertRow("Currency", {{"CurrencyID", 1},
                           {"CurrencyName", "Canadian Dollars"},
                           {"APGLAccountID", 3},
                           {"APDiscGLAccountID", 6},
                           {"ARGLAccountID", 2},
                           {"ARDiscGLAccountID", 5}});
    Table currency(db_, "Currency");
    currency.Open();
    Table t(db_, "Vendor");
    t.AddLookupField("CurrencyName", FieldType::String, 20, "CurrencyID", currency, "CurrencyID",
                     "CurrencyName");
    AddLabelField(t);
    t.Open();
    AddVendor(t, 1, "100", "Acme");
    EXPECT_EQ(t.FieldByName("CurrencyName").AsString(), "Canadian Dollars");
    EXPECT_EQ(t.FieldByName("Label").AsString(), "100: Acme");
    t.Edit();
    t.FieldByName("VendorName").SetAsString("Acme Ltd");
    EXPECT_EQ(t.FieldByName("Label").AsString(), "100: Acme Ltd");
    t.FieldByName("CurrencyID").SetAsInteger(9);
    EXPECT_TRUE(t.FieldByName("CurrencyName").IsNull());
    EXPECT_THROW(t.FieldByName("Label").SetAsString("x"), EngineError);
    t.Cancel();
}

// A look-up of a calculated field gives the found row's value and leaves the current record.
TEST_F(TableEdit, LookupOfACalculatedFieldComputesItForTheFoundRow) {
    Table t(db_, "Vendor");
    AddLabelField(t);
    t.Open();
    AddVendor(t, 1, "100", "Acme");
    AddVendor(t, 2, "200", "Brick");
    t.Locate("VendorID", {Value(1)});
    EXPECT_EQ(t.Lookup("VendorID", {Value(2)}, "Label"), Value("200: Brick"));
    EXPECT_EQ(t.LookupValues("VendorID", {Value(2)}, "VendorName;Label"),
              (std::vector<Value>{Value("Brick"), Value("200: Brick")}));
    EXPECT_TRUE(t.Lookup("VendorID", {Value(3)}, "Label").IsNull());
    EXPECT_EQ(t.FieldByName("Label").AsString(), "100: Acme");
    EXPECT_EQ(t.FieldByName("VendorID").AsInteger(), 1);
}

TEST_F(TableEdit, ARowChangedOrDeletedByAnotherCursorRefusesTheEdit) {
    Table a(db_, "Vendor"), b(db_, "Vendor");
    a.Open();
    AddVendor(a, 1, "100", "Acme");
    AddVendor(a, 2, "200", "Bolt");
    b.Open();
    ASSERT_TRUE(a.Locate("VendorID", {Value(1)}));
    ASSERT_TRUE(b.Locate("VendorID", {Value(1)}));
    b.Edit();
    b.FieldByName("VendorName").SetAsString("Acme Ltd");
    b.Post();
    EXPECT_EQ(ErrorCodeOf([&] { a.Edit(); }), errRecordChanged);
    EXPECT_EQ(a.State(), DataSetState::Browse);
    // The refused cursor now shows the row as it stands, so a second try goes through.
    EXPECT_EQ(a.FieldByName("VendorName").AsString(), "Acme Ltd");
    a.Edit();
    a.Cancel();

    b.Delete();
    EXPECT_EQ(ErrorCodeOf([&] { a.Edit(); }), errRecordChanged);
    EXPECT_EQ(ErrorCodeOf([&] { a.Delete(); }), errRecordChanged);
    a.Refresh();
    EXPECT_EQ(a.FieldByName("VendorID").AsInteger(), 2);
}

TEST_F(TableEdit, OneRecordIsEditedByOneCursorAtATime) {
    Table a(db_, "Vendor"), b(db_, "Vendor");
    a.Open();
    AddVendor(a, 1, "100", "Acme");
    b.Open();
    a.Edit();
    EXPECT_EQ(ErrorCodeOf([&] { b.Edit(); }), errRecordLocked);
    int calls = 0;
    b.OnEditError = [&](DataSet&, EngineError& e, DataAction& action) {
        EXPECT_EQ(e.ErrorCode(), errRecordLocked);
        // The first refusal asks for a retry, after the other cursor let go.
        action = ++calls == 1 ? DataAction::Retry : DataAction::Fail;
        if (calls == 1) a.Cancel();
    };
    b.Edit();
    EXPECT_EQ(calls, 1);
    EXPECT_EQ(b.State(), DataSetState::Edit);
    b.Cancel();
}

TEST_F(TableEdit, ExclusiveOpenFailsWhileAnotherCursorHasTheTable) {
    Table shared(db_, "JVCtl");
    shared.Open();
    Table exclusive(db_, "JVCtl");
    exclusive.SetExclusive(true);
    EXPECT_EQ(ErrorCodeOf([&] { exclusive.Open(); }), errTableInUse);
    shared.Close();
    exclusive.Open();
    Table other(db_, "JVCtl");
    EXPECT_EQ(ErrorCodeOf([&] { other.Open(); }), errTableInUse);
    // Only an exclusive cursor may empty a table.
    EXPECT_EQ(ErrorCodeOf([&] {
                  shared.Open();
                  shared.EmptyTable();
              }),
              errTableInUse);
    exclusive.Insert();
    exclusive.FieldByName("NextJVID").SetAsInteger(5);
    exclusive.Post();
    exclusive.EmptyTable();
    EXPECT_TRUE(exclusive.IsEmpty());
}

TEST_F(TableEdit, AutoIncrementNumbersAreNeverHandedOutTwice) {
    Table t(db_, "GLHist");
    t.Open();
    auto add = [&](int jv) {
        t.Insert();
        FillGLHistLine(t, jv, Date::FromYmd(2017, 1, 5), Money::FromCents(1050));
        t.Post();
        return t.FieldByName("GLHistID").AsInteger();
    };
    EXPECT_EQ(add(1), 1);
    EXPECT_EQ(add(2), 2);
    t.Last();
    t.Delete();
    EXPECT_EQ(add(3), 3);
    // A row given its own number moves the counter past it.
    t.Insert();
    t.FieldByName("GLHistID").SetAsInteger(10);
    FillGLHistLine(t, 4, Date::FromYmd(2017, 1, 5), Money::FromCents(1));
    t.Post();
    EXPECT_EQ(add(5), 11);
    EXPECT_EQ(t.FieldByName("Amount").AsMoney(), Money::FromCents(1050));
}

TEST_F(TableEdit, APostedRowHasItsNeighbours) {
    Table t(db_, "Users");
    t.Open();
    for (const char* name : {"carol", "alice", "bob"}) {
        t.Append();
        t.FieldByName("UserName").SetAsString(name);
        t.Post();
    }
    // Standing on "bob", the rows around it are those of the index, not of an old read.
    t.Prior();
    EXPECT_EQ(t.FieldByName("UserName").AsString(), "alice");
    EXPECT_FALSE(t.Bof());
    t.Next();
    t.Edit();
    t.FieldByName("UserName").SetAsString("dave");
    t.Post();
    t.Prior();
    EXPECT_EQ(t.FieldByName("UserName").AsString(), "carol");
    t.Next();
    EXPECT_EQ(t.FieldByName("UserName").AsString(), "dave");
}

TEST_F(TableEdit, DeleteStandsOnTheNextRowThenThePrior) {
    Table t(db_, "Vendor");
    t.Open();
    for (int i = 1; i <= 3; ++i)
        AddVendor(t, i, std::to_string(i), "V" + std::to_string(i));
    ASSERT_TRUE(t.Locate("VendorID", {Value(2)}));
    t.Delete();
    EXPECT_EQ(t.FieldByName("VendorID").AsInteger(), 3);
    t.Delete();
    EXPECT_EQ(t.FieldByName("VendorID").AsInteger(), 1);
    t.Delete();
    EXPECT_TRUE(t.IsEmpty());
    // An insert without changes is dropped by CheckBrowseMode.
    t.Insert();
    t.CheckBrowseMode();
    EXPECT_EQ(t.State(), DataSetState::Browse);
    EXPECT_TRUE(t.IsEmpty());
}

TEST_F(TableEdit, NotACompanyFolderIsRefused) {
    corvane::testing::TempFolder empty;
    Session s;
    Database other(s);
    other.SetDirectory(empty.Path());
    EXPECT_EQ(ErrorCodeOf([&] { other.Open(); }), errNotADatabase);
    other.SetDirectory(empty.Path() + "/missing");
    EXPECT_EQ(ErrorCodeOf([&] { other.Open(); }), errNotADatabase);
    EXPECT_FALSE(other.Connected());
    Table t(db_, "NoSuchTable");
    EXPECT_EQ(ErrorCodeOf([&] { t.Open(); }), errTableNotFound);
    EXPECT_FALSE(t.Exists());
    EXPECT_TRUE(Table(db_, "Vendor.DAT").Exists());
}

} // namespace
