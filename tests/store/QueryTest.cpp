#include "store/Query.h"
#include "support/CompanyFixture.h"

using namespace corvane;
using namespace corvane::store;
using corvane::testing::CompanyTest;

namespace {

class Queries : public CompanyTest {
protected:
    void SetUp() override {
        CompanyTest::SetUp();
        InsertRow(
            "Vendor",
            {{"VendorID", 1}, {"VendorNo", "100"}, {"VendorName", "Acme"}, {"CurrencyID", 1}});
        InsertRow(
            "Vendor",
            {{"VendorID", 2}, {"VendorNo", "200"}, {"VendorName", "bolt"}, {"CurrencyID", 2}});
        for (int i = 1; i <= 6; ++i)
            InsertRow("APInv", {{"APInvoiceID", i},
                                {"VendorID", 1 + i % 2},
                                {"InvoiceNo", "I" + std::to_string(i)},
                                {"InvoiceDate", Date::FromYmd(2017, 3, i)},
                                {"DueDate", Date::FromYmd(2017, 4, i)},
                                {"GLYear", 2017},
                                {"GLPeriod", 3},
                                {"InvoiceAmount", Money::FromCents(10000 * i + 1)},
                                {"Owing", Money::FromCents(i % 3 == 0 ? 0 : 5000 * i)},
                                {"Posted", i <= 4}});
    }
};

TEST_F(Queries, ParametersBindTypedValuesAndAPreparedQueryRunsAgain) {
    Query q(
        db_,
        "SELECT APInvoiceID, InvoiceNo, Owing FROM APInv WHERE VendorID = :VendorID AND Owing <> 0 "
        "ORDER BY InvoiceNo");
    q.Prepare();
    q.ParamByName("VendorID").SetAsInteger(1);
    q.Open();
    // Vendor 1 has invoices 2, 4, 6; invoice 6 owes nothing.
    EXPECT_EQ(q.RecordCount(), 2);
    EXPECT_EQ(q.FieldByName("InvoiceNo").AsString(), "I2");
    EXPECT_EQ(q.FieldByName("Owing").AsMoney(), Money::FromCents(10000));
    q.Close();
    q.ParamByName("vendorid").SetAsInteger(2);
    q.Open();
    EXPECT_EQ(q.RecordCount(), 2); // 1 and 5; 3 owes nothing
    q.Close();
    // A money parameter meets a money column in its own scale.
    q.SetSQL("SELECT InvoiceNo FROM APInv WHERE InvoiceAmount > :Amount AND InvoiceDate <= :AsOf "
             "ORDER BY InvoiceNo");
    q.ParamByName("Amount").SetAsMoney(Money::FromCents(30001));
    q.ParamByName("AsOf").SetAsDate(Date::FromYmd(2017, 3, 5));
    q.Open();
    std::vector<std::string> got;
    for (q.First(); !q.Eof(); q.Next())
        got.push_back(q.FieldByName("InvoiceNo").AsString());
    EXPECT_EQ(got, (std::vector<std::string>{"I4", "I5"}));
}

TEST_F(Queries, SumsOfMoneyAreExactAndJoinsCarryTheirTypes) {
    Query q(db_, "SELECT V.VendorName, SUM(I.InvoiceAmount) AS Total, COUNT(*) AS N FROM APInv I "
                 "INNER JOIN Vendor V ON I.VendorID = V.VendorID GROUP BY V.VendorName ORDER BY "
                 "V.VendorName NOCASE");
    q.Open();
    ASSERT_EQ(q.RecordCount(), 2);
    EXPECT_EQ(q.FieldByName("VendorName").AsString(), "Acme");
    // Invoices 2, 4, 6: 200.01 + 400.01 + 600.01.
    EXPECT_EQ(q.FieldByName("Total").AsMoney(), Money::FromCents(120003));
    EXPECT_EQ(q.FieldByName("N").AsInteger(), 3);
    EXPECT_TRUE(q.ReadOnly);
    EXPECT_THROW(q.Edit(), EngineError);
}

TEST_F(Queries, ScratchTablesLiveInMemory) {
    Query q(db_);
    q.SetSQL("CREATE TABLE \"\\Memory\\Work\" (Name VARCHAR(20), Amount MONEY, Seen DATE)");
    q.ExecSQL();
    q.SetSQL("INSERT INTO \"\\Memory\\Work\" VALUES ('a', 12.5, '2017-01-02')");
    q.ExecSQL();
    EXPECT_EQ(q.RowsAffected(), 1);
    Table work(db_, "Work");
    work.SetDatabaseName("memory");
    work.Open();
    EXPECT_EQ(work.FieldByName("Amount").AsMoney(), Money::FromCents(1250));
    EXPECT_EQ(work.FieldByName("Seen").AsDate(), Date::FromYmd(2017, 1, 2));
    work.Close();
    // A copy of a company table, empty, and then dropped.
    q.SetSQL("SELECT * INTO \"\\Memory\\APInvCopy\" FROM APInv WHERE 1=2");
    q.ExecSQL();
    EXPECT_TRUE(db_.TableExists(Database::MemorySchema, "APInvCopy"));
    EXPECT_EQ(db_.TableDefinition(Database::MemorySchema, "APInvCopy").Fields.size(),
              db_.TableDefinition(Database::MainSchema, "APInv").Fields.size());
    q.SetSQL("DROP TABLE IF EXISTS \"\\Memory\\APInvCopy\"");
    q.ExecSQL();
    q.ExecSQL();
    EXPECT_FALSE(db_.TableExists(Database::MemorySchema, "APInvCopy"));
    // The company never sees a scratch table.
    EXPECT_FALSE(db_.TableExists(Database::MainSchema, "Work"));
}

TEST_F(Queries, AFilterOnAQueryNarrowsItsRows) {
    Query q(db_,
            "SELECT I.InvoiceNo, I.Posted, V.VendorName FROM APInv I LEFT OUTER JOIN Vendor V ON "
            "I.VendorID = V.VendorID ORDER BY I.InvoiceNo");
    q.Open();
    EXPECT_EQ(q.RecordCount(), 6);
    q.SetFilter("(Posted = false) AND (UPPER(VendorName) LIKE 'B%')");
    q.SetFiltered(true);
    // Not posted: 5 and 6; vendor bolt (2) has the odd ones: 5.
    ASSERT_EQ(q.RecordCount(), 1);
    EXPECT_EQ(q.FieldByName("InvoiceNo").AsString(), "I5");
    q.SetFiltered(false);
    EXPECT_EQ(q.RecordCount(), 6);
    EXPECT_TRUE(q.Locate("InvoiceNo", {Value("i3")}, {.CaseInsensitive = true}));
    EXPECT_EQ(q.FieldByName("VendorName").AsString(), "bolt");
}

TEST_F(Queries, BadStatementsAreRefusedAndChangeNothing) {
    Query q(db_, "SELECT FROM WHERE");
    try {
        q.Open();
        FAIL() << "a broken statement opened";
    } catch (const EngineError& e) {
        EXPECT_EQ(e.ErrorCode(), errSqlSyntax);
    }
    q.SetSQL("SELECT NoSuchColumn FROM APInv");
    EXPECT_THROW(q.Open(), EngineError);
    q.SetSQL("SELECT * FROM NoSuchTable");
    EXPECT_THROW(q.Open(), EngineError);
    // A statement that writes does not open as a cursor.
    q.SetSQL("DELETE FROM APInv");
    try {
        q.Open();
        FAIL() << "a DELETE opened as a cursor";
    } catch (const EngineError& e) {
        EXPECT_EQ(e.ErrorCode(), errSqlRefused);
    }
    EXPECT_EQ(CountRows("APInv"), 6);
    // A value given as a parameter is data, however it reads.
    q.SetSQL("SELECT COUNT(*) AS N FROM APInv WHERE InvoiceNo = :No");
    q.ParamByName("No").SetAsString("I1' OR '1'='1");
    q.Open();
    EXPECT_EQ(q.FieldByName("N").AsInteger(), 0);
}

TEST_F(Queries, ADeleteStatementReportsTheRowsItRemoved) {
    Query q(db_, "DELETE FROM APInv WHERE Owing = 0");
    q.ExecSQL();
    EXPECT_EQ(q.RowsAffected(), 2);
    EXPECT_EQ(CountRows("APInv"), 4);
}

} // namespace

// A list form keeps its query while the company closes under it (a change of company frees the
// forms only once the event is over): the query must neither reach the old connection when it
// goes nor stay tied to it when the company opens again.
TEST_F(Queries, AQueryOutlivesTheCloseOfItsDatabaseAndPreparesAgainOnTheNextOpen) {
    auto q = std::make_unique<Query>(db_, "SELECT InvoiceNo FROM APInv ORDER BY InvoiceNo");
    q->Open();
    EXPECT_EQ(q->RecordCount(), 6);
    db_.Close();
    EXPECT_FALSE(q->Active());
    EXPECT_FALSE(q->Prepared());
    db_.Open();
    q->Open();
    EXPECT_EQ(q->RecordCount(), 6);
    EXPECT_EQ(q->FieldByName("InvoiceNo").AsString(), "I1");
    db_.Close();
    q.reset(); // after its database closed: nothing of the old connection is read
    db_.Open();
}
