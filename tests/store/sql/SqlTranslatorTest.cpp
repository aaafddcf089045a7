#include "store/sql/SqlTranslator.h"
#include "core/Rounding.h"
#include "store/EngineError.h"
#include "store/sql/Connection.h"
#include "store/tables/CompanyTables.h"

#include <gtest/gtest.h>

#include <map>
#include <sqlite3.h>

namespace corvane::store {
// Failures show values as text rather than as bytes.
static void PrintTo(const Value& v, std::ostream* os) {
    *os << v.DebugString();
}
} // namespace corvane::store

using namespace corvane;
using namespace corvane::store;
using corvane::store::sql::TranslatedStatement;
using Kind = TranslatedStatement::Kind;

namespace {

// Company tables by their real definitions, scratch tables as the statements create them.
class TestSchema : public sql::SchemaLookup {
public:
    const TableDef* FindTable(std::string_view schema, std::string_view name) const override {
        if (schema == "main") return tables::FindCompanyTable(name);
        for (const auto& [key, def] : memory_)
            if (SameName(key, name)) return &def;
        return nullptr;
    }
    void AddMemory(const TableDef& def) { memory_[def.Name] = def; }
    void DropMemory(const std::string& name) {
        for (auto it = memory_.begin(); it != memory_.end(); ++it) {
            if (SameName(it->first, name)) {
                memory_.erase(it);
                return;
            }
        }
    }

private:
    std::map<std::string, TableDef> memory_;
};

using Params = std::vector<std::pair<std::string, Value>>;

struct Result {
    TranslatedStatement Statement;
    std::vector<std::vector<Value>> Rows;

    const sql::ResultColumn& Column(std::string_view name) const {
        for (const auto& c : Statement.Columns)
            if (SameName(c.Name, name)) return c;
        throw std::runtime_error("no result column " + std::string(name));
    }
    std::vector<std::string> Texts(std::size_t column = 0) const {
        std::vector<std::string> out;
        for (const auto& r : Rows)
            out.push_back(r[column].IsNull() ? "<null>" : r[column].Str());
        return out;
    }
};

Money Cents(std::int64_t cents) {
    return Money::FromCents(cents);
}
Money Units(std::int64_t units) {
    return Money::FromUnits(units);
}

class SqlTranslation : public ::testing::Test {
protected:
    void SetUp() override {
        conn_.Exec("ATTACH DATABASE ':memory:' AS memory");
        sql::RegisterSqlFunctions(conn_.Handle());
        for (const char* name :
             {"Vendor", "APInv", "APInvDet", "APCheq", "ARInv", "ARPmt", "ARInvPmt", "Customer",
              "FStmt", "IHist", "IBalance", "Item", "Warehse", "GLActual"})
            CreateTable(*tables::FindCompanyTable(name), "main");
        // Money in ten-thousandths, dates as ISO text, booleans as 0/1: the stored forms.
        conn_.Exec(
            "INSERT INTO Vendor (VendorID, VendorNo, VendorName, CurrencyID, Suspended) VALUES "
            "(1, 'V100', 'Acme Supply', 1, 0), (2, 'V200', 'bolt & Nut', 1, 0), "
            "(3, 'V300', 'Zenith', 2, 1), (4, 'V400', 'O''Brien: Ltd', 1, 0)");
        conn_.Exec("INSERT INTO APInv (APInvoiceID, VendorID, InvoiceNo, InvoiceDate, DueDate, "
                   "InvoiceAmount, "
                   "Owing, Posted, GLYear, GLPeriod) VALUES "
                   "(1, 1, 'A-1', '2017-03-01', '2017-03-31', 1000000, 1000000, 1, 2017, 3), "
                   "(2, 1, 'A-2', '2017-04-10', '2017-05-10', 2505000, 0, 1, 2017, 4), "
                   "(3, 2, 'B-1', '2017-05-05', '2017-06-04', 123456, 123456, 0, 2017, 5), "
                   "(4, 2, 'B-2', '2017-12-30', '2018-01-29', 10000000, 4000000, 1, 2017, 12), "
                   "(5, 3, 'C-1', '2016-02-29', '2016-03-30', 752500, 752500, 1, 2016, 2)");
        conn_.Exec("INSERT INTO APInvDet (APInvoiceID, Seq) VALUES (1, 1), (1, 2), (1, 5), (2, 1)");
        conn_.Exec("INSERT INTO APCheq (ChequeID, ChequeNo, VendorID, BankID, ChequeAmount, "
                   "Posted, PaidBy) "
                   "VALUES (1, NULL, 2, 1, 500000, 0, 2), (2, '1001', 1, 1, 1000000, 1, 1), "
                   "(3, '1002', 9, 1, 250000, 0, 1), (4, '1003', 3, 1, 300000, 0, 2)");
        conn_.Exec("INSERT INTO Customer (CustomerID, CustomerNo, CustomerName) VALUES "
                   "(1, 'C1', 'Beta Foods'), (2, 'C2', 'alpha Co')");
        conn_.Exec("INSERT INTO ARInv (ARInvoiceID, CustomerID, InvoiceNo, InvoiceDate, "
                   "InvoiceAmount, Owing, "
                   "Posted) VALUES (1, 1, 'I-1', '2017-01-10', 500000, 500000, 1), "
                   "(2, 2, 'I-2', '2017-01-12', 1234567, 0, 1)");
        conn_.Exec("INSERT INTO ARPmt (PaymentID, ChequeNo, CustomerID, BankID, PaymentDate, "
                   "ChequeAmount) "
                   "VALUES (1, '77', 2, 1, '2017-01-20', 1234567)");
        conn_.Exec(
            "INSERT INTO ARInvPmt (ARInvoiceID, PaymentID, Seq, PaymentAmount, DiscTakenAmount) "
            "VALUES (2, 1, 1, 1200000, 34567)");
        conn_.Exec(
            "INSERT INTO FStmt (StmtID, StmtTitle) VALUES (5, 'Balance sheet'), (7, 'Income')");
        conn_.Exec("INSERT INTO Item (ItemID, ItemNo) VALUES (1, 'X-1'), (2, 'a-2')");
        conn_.Exec("INSERT INTO Warehse VALUES (1, 'beta'), (2, 'Alpha'), (3, 'Gamma')");
        conn_.Exec(
            "INSERT INTO IBalance VALUES (1, 1, 5.0), (1, 2, 3.0), (2, 3, 7.5), (1, 3, 1.0)");
        conn_.Exec(
            "INSERT INTO IHist (IHistID, ItemID, WarehouseID, GLYear, TransType, Quantity) VALUES "
            "(1, 1, 1, 2015, 1, 10), (2, 1, 1, 2015, 2, 4), (3, 1, 1, 2016, 1, 100), "
            "(4, 2, 1, 2014, 3, 5)");
        conn_.Exec(
            "INSERT INTO GLActual (GLAccountID, GLYear, ActualBudget, OpeningBal, Amount1) VALUES "
            "(1, 2017, 'A', 0, 0), (2, 2017, 'A', 0, 5000000), (3, 2017, 'A', NULL, 0)");
    }

    void CreateTable(const TableDef& def, const std::string& schema) {
        std::string ddl = "CREATE TABLE " + schema + ".\"" + def.Name + "\" (";
        for (std::size_t i = 0; i < def.Fields.size(); ++i) {
            const FieldDef& f = def.Fields[i];
            ddl += (i ? ", \"" : "\"") + f.Name + "\" " + std::string(StoredTypeName(f.Type));
            if (f.Type == FieldType::String) ddl += "(" + std::to_string(f.Size) + ")";
        }
        conn_.Exec(ddl + ")");
    }

    // Translates a statement and carries it out as the store's executor does, binding the
    // parameters as the query binds them.
    Result Run(std::string_view text, const Params& params = {}) {
        Result r;
        r.Statement = sql::TranslateSql(text, schema_);
        const TranslatedStatement& tr = r.Statement;
        switch (tr.StatementKind) {
        case Kind::CreateTable:
            CreateTable(*tr.NewTable, tr.TargetSchema);
            schema_.AddMemory(*tr.NewTable);
            return r;
        case Kind::DropTable:
            conn_.Exec("DROP TABLE IF EXISTS " + tr.TargetSchema + ".\"" + tr.TargetTable + "\"");
            schema_.DropMemory(tr.TargetTable);
            return r;
        case Kind::CreateIndex:
            return r;
        case Kind::SelectInto:
            conn_.Exec("DROP TABLE IF EXISTS " + tr.TargetSchema + ".\"" + tr.TargetTable + "\"");
            CreateTable(*tr.NewTable, tr.TargetSchema);
            schema_.AddMemory(*tr.NewTable);
            break;
        default:
            break;
        }
        Statement s(conn_, tr.Sql);
        for (std::size_t i = 0; i < tr.Params.size(); ++i)
            s.Bind(static_cast<int>(i) + 1, Bound(tr.Params[i], params));
        while (s.Step()) {
            std::vector<Value> row;
            for (std::size_t c = 0; c < tr.Columns.size(); ++c) {
                const auto& col = tr.Columns[c];
                int i = static_cast<int>(c);
                row.push_back(col.TypeKnown ? s.ColumnValue(i, col.Type) : s.ColumnNatural(i));
            }
            if (tr.StatementKind == Kind::Select) r.Rows.push_back(std::move(row));
        }
        s.Reset();
        return r;
    }

    static Value Bound(const sql::ParamSlot& slot, const Params& params) {
        for (const auto& [name, value] : params) {
            if (!SameName(name, slot.Name)) continue;
            if (!slot.MoneyScaled)
                return value.kind() == Value::Kind::Money ? Value(value.Money().ToDouble()) : value;
            if (value.kind() == Value::Kind::Integer) return Value(value.Int() * Money::Scale);
            if (value.kind() == Value::Kind::Float)
                return Value(
                    static_cast<std::int64_t>(RoundHalfAway(value.Float() * Money::Scale)));
            return value;
        }
        ADD_FAILURE() << "no value for parameter " << slot.Name;
        return Value();
    }

    std::int64_t Scalar(const std::string& rawSql) {
        Statement s(conn_, rawSql);
        EXPECT_TRUE(s.Step());
        std::int64_t n = s.ColumnInt(0);
        s.Reset();
        return n;
    }

    // The EngineError a statement raises when translated, or a test failure if it translates.
    EngineError TranslateError(std::string_view text) {
        try {
            sql::TranslateSql(text, schema_);
        } catch (const EngineError& e) {
            return e;
        }
        ADD_FAILURE() << "translated: " << text;
        return EngineError(0, "");
    }

    Connection conn_{":memory:", Connection::Mode::ReadWriteCreate};
    TestSchema schema_;
};

TEST_F(SqlTranslation, TopStandsAfterSelectOrAfterTheFromClause) {
    Result r = Run("SELECT StmtID FROM FStmt TOP 1");
    ASSERT_EQ(r.Rows.size(), 1u);
    EXPECT_EQ(r.Column("StmtID").Type, FieldType::Integer);
    EXPECT_EQ(Run("SELECT TOP 2 InvoiceNo FROM APInv ORDER BY InvoiceNo DESC").Texts(),
              (std::vector<std::string>{"C-1", "B-2"}));
    EXPECT_EQ(
        Run("SELECT InvoiceNo FROM APInv WHERE Posted = true ORDER BY InvoiceNo TOP 2").Texts(),
        (std::vector<std::string>{"A-1", "A-2"}));
    // After the last FROM of a UNION it limits the whole result.
    EXPECT_EQ(
        Run("SELECT VendorNo FROM Vendor UNION ALL SELECT InvoiceNo FROM APInv TOP 3").Rows.size(),
        3u);
}

TEST_F(SqlTranslation, NoCaseOrdersOnlyTheColumnItFollows) {
    EXPECT_EQ(Run("SELECT WarehouseName FROM Warehse ORDER BY WarehouseName NOCASE").Texts(),
              (std::vector<std::string>{"Alpha", "beta", "Gamma"}));
    EXPECT_EQ(Run("SELECT WarehouseName FROM Warehse ORDER BY WarehouseName").Texts(),
              (std::vector<std::string>{"Alpha", "Gamma", "beta"}));
    // Item numbers sort by their bytes ('X' before 'a'); warehouse names within an item do not.
    Result r = Run(
        "SELECT B.ItemID, B.WarehouseID, B.QtyOnHand, I.ItemNo, W.WarehouseName FROM IBalance B "
        "LEFT OUTER JOIN Item I ON B.ItemID = I.ItemID LEFT OUTER JOIN Warehse W ON B.WarehouseID "
        "= "
        "W.WarehouseID ORDER BY I.ItemNo, W.WarehouseName NOCASE");
    EXPECT_EQ(r.Texts(3), (std::vector<std::string>{"X-1", "X-1", "X-1", "a-2"}));
    EXPECT_EQ(r.Texts(4), (std::vector<std::string>{"Alpha", "beta", "Gamma", "Gamma"}));
    EXPECT_EQ(r.Column("QtyOnHand").Type, FieldType::Float);
}

TEST_F(SqlTranslation, PlusOnTextConcatenatesAndWritesOtherValuesAsText) {
    Result r =
        Run("SELECT V.VendorNo + ' - ' + V.VendorName AS Label, 'Owing ' + I.Owing AS Says, "
            "'Due ' + I.DueDate AS Due FROM Vendor V INNER JOIN APInv I ON I.VendorID = V.VendorID "
            "WHERE I.APInvoiceID = 3");
    ASSERT_EQ(r.Rows.size(), 1u);
    EXPECT_EQ(r.Rows[0][0], Value("V200 - bolt & Nut"));
    EXPECT_EQ(r.Rows[0][1], Value("Owing 12.3456"));
    EXPECT_EQ(r.Rows[0][2], Value("Due 2017-06-04"));
    EXPECT_EQ(r.Column("Label").Type, FieldType::String);
    EXPECT_EQ(r.Column("Label").Size, 10 + 3 + 40);
}

TEST_F(SqlTranslation, IfAndCaseInsideSumTakeTheTypeOfTheirValues) {
    Result r = Run("SELECT SUM(IF(Posted = true THEN Owing ELSE 0)) AS PostedOwing, "
                   "SUM(IF(Posted = false, InvoiceAmount, 0)) AS Unposted, "
                   "SUM(IF(Owing > 50 THEN 1 ELSE 0)) AS Big FROM APInv");
    ASSERT_EQ(r.Rows.size(), 1u);
    EXPECT_EQ(r.Rows[0][0], Value(Cents(57525))); // 100 + 0 + 400 + 75.25
    EXPECT_EQ(r.Rows[0][1], Value(Units(123456)));
    EXPECT_EQ(r.Rows[0][2], Value(std::int64_t{3}));
    EXPECT_EQ(r.Column("PostedOwing").Type, FieldType::Currency);
    EXPECT_EQ(r.Column("Big").Type, FieldType::Integer);

    Result q = Run(
        "SELECT ItemID, WarehouseID, SUM (CASE WHEN TransType=1 THEN Quantity WHEN TransType=2 "
        "THEN "
        "-Quantity END) AS TotQuantity FROM IHist WHERE GLYEAR < 2016 GROUP BY ItemID, WarehouseID "
        "ORDER BY ItemID");
    ASSERT_EQ(q.Rows.size(), 2u);
    EXPECT_EQ(q.Column("TotQuantity").Type, FieldType::Float);
    EXPECT_DOUBLE_EQ(q.Rows[0][2].Float(), 6.0);
    EXPECT_TRUE(q.Rows[1][2].IsNull()); // no CASE arm for transaction type 3
}

TEST_F(SqlTranslation, NumbersMeetingMoneyAreScaledToTenThousandths) {
    auto invoices = [&](const std::string& where) {
        return Run("SELECT InvoiceNo FROM APInv WHERE " + where + " ORDER BY InvoiceNo").Texts();
    };
    using Names = std::vector<std::string>;
    EXPECT_EQ(invoices("InvoiceAmount > 100"), (Names{"A-2", "B-2"}));
    EXPECT_EQ(invoices("100 < InvoiceAmount"), (Names{"A-2", "B-2"}));
    EXPECT_EQ(invoices("Owing BETWEEN 12.3456 AND 100"), (Names{"A-1", "B-1", "C-1"}));
    EXPECT_EQ(invoices("Owing IN (0, 400)"), (Names{"A-2", "B-2"}));
    EXPECT_EQ(invoices("Owing - 0.0001 = 12.3455"), (Names{"B-1"}));
    EXPECT_EQ(invoices("Owing = -(-75.25)"), (Names{"C-1"}));
    EXPECT_EQ(invoices("Owing IN (SELECT 400 FROM Vendor WHERE VendorID = 1)"), (Names{"B-2"}));
    EXPECT_EQ(invoices("Owing <> 0").size(), 4u);

    Result r = Run(
        "SELECT InvoiceAmount + 5 AS Plus, InvoiceAmount - 2.5 AS Minus, 1 + Owing AS OnePlus, "
        "InvoiceAmount * 2 AS Twice, InvoiceAmount / 3 AS Third, InvoiceAmount / Owing AS Ratio, "
        "-InvoiceAmount AS Neg, COALESCE(Owing, 0) AS Owed FROM APInv WHERE APInvoiceID = 1");
    ASSERT_EQ(r.Rows.size(), 1u);
    const auto& row = r.Rows[0];
    EXPECT_EQ(row[0], Value(Cents(10500)));
    EXPECT_EQ(row[1], Value(Cents(9750)));
    EXPECT_EQ(row[2], Value(Cents(10100)));
    EXPECT_EQ(row[3], Value(Cents(20000)));
    EXPECT_EQ(row[4], Value(Units(333333))); // the cursor rounds a fraction of a ten-thousandth
    EXPECT_DOUBLE_EQ(row[5].Float(), 1.0);   // the scales cancel
    EXPECT_EQ(row[6], Value(Cents(-10000)));
    EXPECT_EQ(row[7], Value(Cents(10000)));
    for (const char* money : {"Plus", "Minus", "OnePlus", "Twice", "Third", "Neg", "Owed"})
        EXPECT_EQ(r.Column(money).Type, FieldType::Currency) << money;
    EXPECT_EQ(r.Column("Ratio").Type, FieldType::Float);

    EngineError e = TranslateError("SELECT InvoiceAmount * Owing FROM APInv");
    EXPECT_EQ(e.ErrorCode(), errSqlSyntax);
    EXPECT_NE(std::string(e.what()).find("cannot multiply two money values"), std::string::npos);
}

TEST_F(SqlTranslation, ParametersMeetingMoneyAreBoundInTenThousandths) {
    const char* text = "SELECT InvoiceNo FROM APInv WHERE Owing >= :Least AND VendorID = :VendorID "
                       "ORDER BY InvoiceNo";
    Result r = Run(text, {{"Least", Value(Units(123456))}, {"VendorID", Value(2)}});
    ASSERT_EQ(r.Statement.Params.size(), 2u);
    EXPECT_EQ(r.Statement.Params[0].Name, "Least");
    EXPECT_TRUE(r.Statement.Params[0].MoneyScaled);
    EXPECT_FALSE(r.Statement.Params[1].MoneyScaled);
    EXPECT_EQ(r.Texts(), (std::vector<std::string>{"B-1", "B-2"}));
    EXPECT_EQ(Run(text, {{"least", Value(13)}, {"vendorid", Value(2)}}).Texts(),
              (std::vector<std::string>{"B-2"}));
    EXPECT_EQ(Run(text, {{"Least", Value(12.3456)}, {"VendorID", Value(2)}}).Texts(),
              (std::vector<std::string>{"B-1", "B-2"}));

    Result plus =
        Run("SELECT InvoiceNo FROM APInv WHERE Owing + :Extra > 100 AND InvoiceDate <= :AsOf",
            {{"Extra", Value(25.0)}, {"AsOf", Value(Date::FromYmd(2017, 3, 31))}});
    EXPECT_TRUE(plus.Statement.Params[0].MoneyScaled);
    EXPECT_FALSE(plus.Statement.Params[1].MoneyScaled);
    EXPECT_EQ(plus.Texts(), (std::vector<std::string>{"A-1", "C-1"}));
}

TEST_F(SqlTranslation, SumsOfMoneyAreExactIntegersTypedAsMoney) {
    Result r = Run(
        "SELECT VendorID, SUM(Owing), MIN(InvoiceDate), COUNT(*) AS N, AVG(InvoiceAmount) AS Mean "
        "FROM APInv WHERE Owing <> 0 GROUP BY VendorID ORDER BY VendorID");
    ASSERT_EQ(r.Rows.size(), 3u);
    EXPECT_EQ(r.Statement.Columns[1].Name, "SUM(Owing)");
    EXPECT_EQ(r.Statement.Columns[1].Type, FieldType::Currency);
    EXPECT_EQ(r.Statement.Columns[2].Name, "MIN(InvoiceDate)");
    EXPECT_EQ(r.Statement.Columns[2].Type, FieldType::Date);
    EXPECT_EQ(r.Column("N").Type, FieldType::Integer);
    EXPECT_EQ(r.Column("Mean").Type, FieldType::Currency);
    EXPECT_EQ(r.Rows[1][1], Value(Units(4123456)));
    EXPECT_EQ(r.Rows[1][2], Value(Date::FromYmd(2017, 5, 5)));
    EXPECT_EQ(r.Rows[1][3], Value(std::int64_t{2}));
    EXPECT_EQ(r.Rows[1][4], Value(Units(5061728)));
    // SQLite adds the stored integers: the sum never passes through floating point.
    Result sum = Run("SELECT SUM(Owing) AS Total FROM APInv");
    EXPECT_EQ(Scalar("SELECT typeof(Total) = 'integer' FROM (" + sum.Statement.Sql + ")"), 1);
    EXPECT_EQ(sum.Rows[0][0], Value(Units(1000000 + 123456 + 4000000 + 752500)));
}

TEST_F(SqlTranslation, OuterJoinsGiveNullsThatCoalesceReplaces) {
    Result r = Run("SELECT C.*, V.CurrencyID FROM APCheq C LEFT OUTER JOIN Vendor V ON C.VendorID "
                   "= V.VendorID "
                   "WHERE (C.Posted = false) and (((C.PaidBy = 2) and (C.ChequeNo Is Not Null)) or "
                   "(C.PaidBy <> 2)) "
                   "ORDER BY C.ChequeID");
    ASSERT_EQ(r.Statement.Columns.size(), tables::APCheq().Fields.size() + 1);
    ASSERT_EQ(r.Rows.size(), 2u);
    EXPECT_EQ(r.Rows[0][0], Value(std::int64_t{3}));
    EXPECT_TRUE(r.Rows[0].back().IsNull()); // vendor 9 does not exist
    EXPECT_EQ(r.Rows[1].back(), Value(std::int64_t{2}));
    EXPECT_EQ(r.Column("ChequeAmount").Type, FieldType::Currency);

    Result named = Run("SELECT C.ChequeID, COALESCE(V.VendorName, '(none)') AS Name FROM APCheq C "
                       "LEFT JOIN Vendor V ON C.VendorID = V.VendorID ORDER BY C.ChequeID");
    EXPECT_EQ(named.Texts(1),
              (std::vector<std::string>{"bolt & Nut", "Acme Supply", "(none)", "Zenith"}));
    EXPECT_EQ(named.Column("Name").Type, FieldType::String);
    EXPECT_EQ(named.Column("Name").Size, 40);
}

TEST_F(SqlTranslation, NotInSubselectWithParameters) {
    const char* text = "SELECT I.*, V.VendorNo, V.VendorName, V.VendorID, V.CurrencyID FROM APInv "
                       "I INNER JOIN Vendor V ON "
                       "I.VendorID = V.VendorID WHERE (I.Owing <> 0) and (I.Posted = true) and "
                       "(I.DueDate<=:DueDate) and "
                       "(V.CurrencyID=:CurrencyID) and (V.VendorID NOT IN (SELECT VendorID FROM "
                       "APCheq WHERE Posted = false)) "
                       "ORDER BY V.VendorName, V.VendorNo, I.InvoiceNo";
    // Vendors 2 and 3 have unposted cheques; vendor 1's A-2 owes nothing.
    Result r =
        Run(text, {{"DueDate", Value(Date::FromYmd(2018, 12, 31))}, {"CurrencyID", Value(1)}});
    ASSERT_EQ(r.Rows.size(), 1u);
    EXPECT_EQ(r.Statement.Columns.size(), tables::APInv().Fields.size() + 4);
    EXPECT_EQ(r.Rows[0][2], Value("A-1"));
    EXPECT_EQ(r.Column("Owing").Type, FieldType::Currency);
    EXPECT_EQ(r.Column("VendorName").Size, 40);
    EXPECT_TRUE(
        Run(text, {{"DueDate", Value(Date::FromYmd(2017, 3, 30))}, {"CurrencyID", Value(1)}})
            .Rows.empty());

    EXPECT_EQ(Run("SELECT VendorNo FROM Vendor WHERE VendorID IN (SELECT VendorID FROM APInv WHERE "
                  "Owing > 300)")
                  .Texts(),
              (std::vector<std::string>{"V200"}));
}

TEST_F(SqlTranslation, UnionBringsPlainNumbersToTheMoneyOfTheOtherBranchAndOrdersByResultColumns) {
    Result r = Run(
        "SELECT CAST(0 AS Int) PaymentID, 'I' RecordType, I.InvoiceNo, CAST('' AS CHAR(8)) "
        "ChequeNo, "
        "I.InvoiceDate InvPmtDate, I.InvoiceAmount Amount, C.CustomerName, CAST(0 AS FLOAT) "
        "DiscTakenAmount "
        "FROM ARInv I LEFT OUTER JOIN Customer C ON I.CustomerID = C.CustomerID "
        "UNION SELECT P.PaymentID, 'P' RecordType, I.InvoiceNo, P.ChequeNo, P.PaymentDate, "
        "IP.PaymentAmount, "
        "C.CustomerName, IP.DiscTakenAmount FROM ARPmt P INNER JOIN ARInvPmt IP ON IP.PaymentID = "
        "P.PaymentID "
        "LEFT OUTER JOIN ARInv I ON I.ARInvoiceID = IP.ARInvoiceID LEFT OUTER JOIN Customer C ON "
        "P.CustomerID = C.CustomerID ORDER BY C.CustomerName, InvPmtDate, RecordType, InvoiceNo, "
        "ChequeNo NOCASE");
    ASSERT_EQ(r.Rows.size(), 3u);
    // Customer names sort by their bytes: "Beta Foods" before "alpha Co".
    EXPECT_EQ(r.Texts(6), (std::vector<std::string>{"Beta Foods", "alpha Co", "alpha Co"}));
    EXPECT_EQ(r.Texts(1), (std::vector<std::string>{"I", "I", "P"}));
    EXPECT_EQ(r.Column("PaymentID").Type, FieldType::Integer);
    EXPECT_EQ(r.Column("ChequeNo").Type, FieldType::String);
    EXPECT_EQ(r.Column("ChequeNo").Size, 8);
    EXPECT_EQ(r.Column("InvPmtDate").Type, FieldType::Date);
    EXPECT_EQ(r.Column("Amount").Type, FieldType::Currency);
    EXPECT_EQ(r.Column("DiscTakenAmount").Type, FieldType::Currency);
    EXPECT_EQ(r.Rows[1][5], Value(Units(1234567)));
    EXPECT_EQ(r.Rows[1][7], Value(Money()));
    EXPECT_EQ(r.Rows[2][5], Value(Cents(12000)));
    EXPECT_EQ(r.Rows[2][7], Value(Units(34567)));
    EXPECT_EQ(r.Rows[2][3], Value("77"));

    // A grouped SELECT in the union with a column ordered without regard to case.
    Result grouped =
        Run("SELECT CAST(0 AS Int) PaymentID, 'I' RecordType, I.InvoiceNo ChequeNo FROM ARInv I "
            "UNION SELECT P.PaymentID, 'P' RecordType, P.ChequeNo FROM ARPmt P "
            "LEFT OUTER JOIN ARInvPmt IP ON IP.PaymentID = P.PaymentID GROUP BY P.PaymentID, "
            "P.ChequeNo ORDER BY RecordType, ChequeNo NOCASE");
    ASSERT_FALSE(grouped.Rows.empty());
    EXPECT_EQ(grouped.Texts(1).front(), "I");
    EXPECT_EQ(grouped.Texts(1).back(), "P");

    EngineError e = TranslateError(
        "SELECT VendorNo FROM Vendor UNION SELECT InvoiceNo FROM APInv ORDER BY X.Foo");
    EXPECT_EQ(e.ErrorCode(), errFieldNotFound);
    EXPECT_EQ(TranslateError("SELECT VendorNo FROM Vendor UNION SELECT InvoiceNo, Owing FROM APInv")
                  .ErrorCode(),
              errSqlSyntax);
}

TEST_F(SqlTranslation, SelectIntoMemoryMakesATableThatLaterStatementsRead) {
    Result copy = Run("SELECT * INTO \"\\Memory\\APInvCopy\" FROM APInv WHERE 1=2");
    EXPECT_EQ(copy.Statement.StatementKind, Kind::SelectInto);
    EXPECT_EQ(copy.Statement.TargetSchema, "memory");
    EXPECT_EQ(copy.Statement.TargetTable, "APInvCopy");
    ASSERT_TRUE(copy.Statement.NewTable);
    const TableDef& apinv = tables::APInv();
    ASSERT_EQ(copy.Statement.NewTable->Fields.size(), apinv.Fields.size());
    for (std::size_t i = 0; i < apinv.Fields.size(); ++i) {
        EXPECT_EQ(copy.Statement.NewTable->Fields[i].Name, apinv.Fields[i].Name);
        EXPECT_EQ(copy.Statement.NewTable->Fields[i].Type, apinv.Fields[i].Type);
        EXPECT_EQ(copy.Statement.NewTable->Fields[i].Size, apinv.Fields[i].Size);
    }
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM memory.APInvCopy"), 0);

    Run("SELECT I.InvoiceNo, I.Owing / 3 AS Third, V.VendorName, V.VendorID, I.VendorID INTO "
        "\"\\Memory\\Work\" "
        "FROM APInv I INNER JOIN Vendor V ON V.VendorID = I.VendorID WHERE I.VendorID = 2");
    // Amounts computed on the way are stored as whole ten-thousandths.
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM memory.Work WHERE typeof(Third) <> 'integer'"), 0);
    Result work = Run("SELECT W.* FROM \"\\Memory\\Work\" W WHERE Third > 100");
    ASSERT_EQ(work.Rows.size(), 1u);
    EXPECT_EQ(work.Rows[0][0], Value("B-2"));
    EXPECT_EQ(work.Rows[0][1], Value(Units(1333333)));
    EXPECT_EQ(work.Column("Third").Type, FieldType::Currency);
    // Two columns of one name become VendorID and VendorID_1.
    EXPECT_EQ(work.Statement.Columns[4].Name, "VendorID_1");
}

TEST_F(SqlTranslation, TableStatementsGiveDefinitionsAndWritesStoreTheRightForm) {
    Result create =
        Run("CREATE TABLE \"\\Memory\\Lines\" (LineNo INTEGER NOT NULL, Title VARCHAR(30), "
            "Amount MONEY, Seen DATE, Done BOOLEAN, Notes MEMO, PRIMARY KEY (LineNo));");
    const TranslatedStatement& tc = create.Statement;
    EXPECT_EQ(tc.StatementKind, Kind::CreateTable);
    EXPECT_TRUE(tc.Sql.empty());
    EXPECT_EQ(tc.TargetSchema, "memory");
    EXPECT_EQ(tc.TargetTable, "Lines");
    ASSERT_TRUE(tc.NewTable);
    ASSERT_EQ(tc.NewTable->Fields.size(), 6u);
    EXPECT_TRUE(tc.NewTable->Fields[0].Required);
    EXPECT_EQ(tc.NewTable->Fields[1].Type, FieldType::String);
    EXPECT_EQ(tc.NewTable->Fields[1].Size, 30);
    EXPECT_EQ(tc.NewTable->Fields[2].Type, FieldType::Currency);
    EXPECT_EQ(tc.NewTable->Fields[3].Type, FieldType::Date);
    EXPECT_EQ(tc.NewTable->Fields[4].Type, FieldType::Boolean);
    EXPECT_EQ(tc.NewTable->Fields[5].Type, FieldType::Memo);
    ASSERT_NE(tc.NewTable->PrimaryIndex(), nullptr);
    EXPECT_EQ(tc.NewTable->PrimaryIndex()->Fields, (std::vector<std::string>{"LineNo"}));

    Result index =
        Run("CREATE UNIQUE NOCASE INDEX ByTitle ON \"\\Memory\\lines\" (title DESC, LineNo)");
    ASSERT_TRUE(index.Statement.NewIndex);
    EXPECT_EQ(index.Statement.TargetTable, "Lines");
    EXPECT_EQ(index.Statement.NewIndex->Name, "ByTitle");
    EXPECT_EQ(index.Statement.NewIndex->Fields, (std::vector<std::string>{"Title", "LineNo"}));
    EXPECT_TRUE(index.Statement.NewIndex->IsUnique());
    EXPECT_TRUE(index.Statement.NewIndex->IsNoCase());
    EXPECT_TRUE(index.Statement.NewIndex->IsDescending("Title"));
    EXPECT_FALSE(index.Statement.NewIndex->IsDescending("LineNo"));
    EXPECT_EQ(TranslateError("CREATE INDEX X ON \"\\Memory\\Lines\" (Nope)").ErrorCode(),
              errFieldNotFound);
    EXPECT_EQ(TranslateError("CREATE INDEX X ON \"\\Memory\\Nope\" (Title)").ErrorCode(),
              errTableNotFound);

    Run("INSERT INTO \"\\Memory\\Lines\" VALUES (1, 'first', 12.5, '2017-01-02', true, 'a:b')");
    Result insert =
        Run("INSERT INTO \"\\Memory\\Lines\" (LineNo, Title, Amount) VALUES (2, 'second', :Amount)",
            {{"Amount", Value(7.25)}});
    EXPECT_EQ(insert.Statement.StatementKind, Kind::Insert);
    EXPECT_TRUE(insert.Statement.Params[0].MoneyScaled);
    EXPECT_EQ(Scalar("SELECT SUM(Amount) FROM memory.Lines WHERE typeof(Amount) = 'integer'"),
              125000 + 72500);
    Result update =
        Run("UPDATE \"\\Memory\\Lines\" SET Amount = Amount + 1, Done = false WHERE LineNo = :No",
            {{"No", Value(1)}});
    EXPECT_EQ(update.Statement.StatementKind, Kind::Update);
    EXPECT_EQ(update.Statement.TargetTable, "Lines");
    Run("INSERT INTO \"\\Memory\\Lines\" (LineNo, Title, Amount) SELECT APInvoiceID + 10, "
        "InvoiceNo, "
        "InvoiceAmount * 0.5 FROM APInv WHERE APInvoiceID = 3");
    Result lines =
        Run("SELECT LineNo, Amount, Done, Seen FROM \"\\Memory\\Lines\" ORDER BY LineNo");
    ASSERT_EQ(lines.Rows.size(), 3u);
    EXPECT_EQ(lines.Rows[0][1], Value(Cents(1350)));
    EXPECT_EQ(lines.Rows[0][2], Value(false));
    EXPECT_EQ(lines.Rows[0][3], Value(Date::FromYmd(2017, 1, 2)));
    EXPECT_EQ(lines.Rows[1][1], Value(Cents(725)));
    EXPECT_TRUE(lines.Rows[1][2].IsNull());
    EXPECT_EQ(lines.Rows[2][1], Value(Units(61728)));
    Result remove = Run("DELETE FROM \"\\Memory\\Lines\" WHERE Amount < 10");
    EXPECT_EQ(remove.Statement.StatementKind, Kind::Delete);
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM memory.Lines"), 1);

    Result drop = Run("DROP TABLE IF EXISTS \"\\Memory\\Lines\"");
    EXPECT_EQ(drop.Statement.StatementKind, Kind::DropTable);
    EXPECT_TRUE(drop.Statement.IfExists);
    EXPECT_EQ(drop.Statement.TargetSchema, "memory");
    EXPECT_EQ(drop.Statement.TargetTable, "Lines");
    EXPECT_FALSE(sql::TranslateSql("DROP TABLE \"\\Memory\\Lines\"", schema_).IfExists);

    Result gl = Run("DELETE FROM GLActual WHERE (OpeningBal = 0) AND (Amount1 = 0)");
    EXPECT_EQ(gl.Statement.TargetSchema, "main");
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM GLActual"), 2);
}

TEST_F(SqlTranslation, DateArithmeticKeepsDatesAsDates) {
    Result r = Run(
        "SELECT InvoiceDate + 30 AS Plus30, 1 + InvoiceDate AS Next, DueDate - InvoiceDate AS "
        "Days, "
        "DueDate - 1 AS DayBefore, YEAR(InvoiceDate) AS Y, EXTRACT(Month FROM InvoiceDate) AS M, "
        "CAST('2017-03-05' AS DATE) AS D, InvoiceDate - :Back AS Earlier FROM APInv WHERE "
        "APInvoiceID = 5",
        {{"Back", Value(60)}});
    ASSERT_EQ(r.Rows.size(), 1u);
    const auto& row = r.Rows[0];
    EXPECT_EQ(row[0], Value(Date::FromYmd(2016, 3, 30)));
    EXPECT_EQ(row[1], Value(Date::FromYmd(2016, 3, 1)));
    EXPECT_EQ(row[2], Value(std::int64_t{30}));
    EXPECT_EQ(row[3], Value(Date::FromYmd(2016, 3, 29)));
    EXPECT_EQ(row[4], Value(std::int64_t{2016}));
    EXPECT_EQ(row[5], Value(std::int64_t{2}));
    EXPECT_EQ(row[6], Value(Date::FromYmd(2017, 3, 5)));
    EXPECT_EQ(row[7], Value(Date::FromYmd(2015, 12, 31)));
    EXPECT_EQ(r.Column("Days").Type, FieldType::Integer);
    EXPECT_EQ(r.Column("D").Type, FieldType::Date);

    Result quarters = Run(
        "SELECT EXTRACT(Year from I.InvoiceDate) as InvYear, "
        "TRUNC((EXTRACT(Month from I.InvoiceDate)+2)/3) AS InvQuarter, SUM(I.InvoiceAmount) Sales "
        "FROM APInv I GROUP BY InvYear, InvQuarter ORDER BY InvYear, InvQuarter");
    ASSERT_EQ(quarters.Rows.size(), 4u);
    EXPECT_EQ(quarters.Column("InvQuarter").Type, FieldType::Integer);
    EXPECT_EQ(quarters.Rows[2][0], Value(std::int64_t{2017}));
    EXPECT_EQ(quarters.Rows[2][1], Value(std::int64_t{2}));
    EXPECT_EQ(quarters.Rows[2][2], Value(Units(2505000 + 123456)));
    EXPECT_EQ(quarters.Rows[3][1], Value(std::int64_t{4}));
}

TEST_F(SqlTranslation, CastsOfMoneyGiveItsPlainValue) {
    Result r =
        Run("SELECT CAST(InvoiceAmount AS Int) AS Whole, CAST(InvoiceAmount AS FLOAT) AS F, "
            "CAST(InvoiceAmount AS CHAR(6)) AS T, CAST(-InvoiceAmount AS INTEGER) AS NegWhole, "
            "CAST(12.5 AS MONEY) AS M, CAST(VendorID AS VARCHAR(3)) AS V FROM APInv WHERE "
            "APInvoiceID = 3");
    ASSERT_EQ(r.Rows.size(), 1u);
    EXPECT_EQ(r.Rows[0][0], Value(std::int64_t{12}));
    EXPECT_DOUBLE_EQ(r.Rows[0][1].Float(), 12.3456);
    EXPECT_EQ(r.Rows[0][2], Value("12.345"));
    EXPECT_EQ(r.Rows[0][3], Value(std::int64_t{-12}));
    EXPECT_EQ(r.Rows[0][4], Value(Cents(1250)));
    EXPECT_EQ(r.Rows[0][5], Value("2"));
    EXPECT_EQ(r.Column("T").Type, FieldType::String);
    EXPECT_EQ(r.Column("T").Size, 6);
    EXPECT_EQ(r.Column("M").Type, FieldType::Currency);
}

TEST_F(SqlTranslation, APlusBeforeAColumnKeepsItsIndexOutOfTheEnginesChoice) {
    conn_.Exec("CREATE INDEX main.\"APInv@VendorID\" ON \"APInv\" (\"VendorID\")");
    auto plan = [&](std::string_view text) {
        Statement s(conn_, "EXPLAIN QUERY PLAN " + sql::TranslateSql(text, schema_).Sql);
        std::string steps;
        while (s.Step())
            steps += s.ColumnNatural(3).Str() + ";";
        return steps;
    };
    EXPECT_NE(plan("SELECT InvoiceNo FROM APInv WHERE VendorID = 2").find("APInv@VendorID"),
              std::string::npos);
    EXPECT_EQ(plan("SELECT InvoiceNo FROM APInv WHERE +VendorID = 2").find("APInv@VendorID"),
              std::string::npos);
    // The column keeps its type: money met by a number is still compared in ten-thousandths.
    EXPECT_EQ(Run("SELECT InvoiceNo FROM APInv WHERE +VendorID = 2 ORDER BY +InvoiceNo").Texts(),
              (std::vector<std::string>{"B-1", "B-2"}));
    EXPECT_EQ(Run("SELECT InvoiceNo FROM APInv WHERE +Owing > 100").Texts(),
              (std::vector<std::string>{"B-2"}));
}

TEST_F(SqlTranslation, RealLookupsOfTheProgram) {
    Result seq = Run("SELECT max(Seq) FROM APInvDet WHERE APInvoiceID=:APInvoiceID",
                     {{"APInvoiceID", Value(1)}});
    EXPECT_EQ(seq.Statement.Columns[0].Name, "max(Seq)");
    EXPECT_EQ(seq.Statement.Columns[0].Type, FieldType::Integer);
    EXPECT_EQ(seq.Rows[0][0], Value(std::int64_t{5}));
    EXPECT_TRUE(Run("SELECT max(Seq) FROM APInvDet WHERE APInvoiceID=:APInvoiceID",
                    {{"APInvoiceID", Value(3)}})
                    .Rows[0][0]
                    .IsNull());
    Result items = Run(
        "SELECT B.ItemID, Sum(B.QtyOnHand) ItemQtyOnHand, I.ItemNo FROM IBalance B LEFT OUTER JOIN "
        "Item I ON B.ItemID = I.ItemID GROUP BY B.ItemID, I.ItemNo ORDER BY I.ItemNo");
    ASSERT_EQ(items.Rows.size(), 2u);
    EXPECT_DOUBLE_EQ(items.Rows[0][1].Float(), 9.0);
    EXPECT_EQ(items.Column("ItemQtyOnHand").Type, FieldType::Float);
    EXPECT_EQ(Run("SELECT VendorNo FROM Vendor WHERE Suspended = true").Texts(),
              (std::vector<std::string>{"V300"}));
    EXPECT_EQ(
        Run("SELECT VendorNo FROM Vendor WHERE NOT Suspended AND VendorName LIKE 'A%'").Texts(),
        (std::vector<std::string>{"V100"}));
    Result totals = Run(
        "SELECT T.VendorID, T.Total FROM (SELECT VendorID, SUM(Owing) AS Total FROM APInv GROUP BY "
        "VendorID) T WHERE T.Total > 100 ORDER BY T.VendorID");
    ASSERT_EQ(totals.Rows.size(), 1u);
    EXPECT_EQ(totals.Rows[0][1], Value(Units(4123456)));
    EXPECT_EQ(totals.Column("Total").Type, FieldType::Currency);
}

TEST_F(SqlTranslation, SubqueriesSeeTheTablesOfTheStatementAroundThem) {
    Result owed =
        Run("SELECT V.VendorNo, (SELECT SUM(I.Owing) FROM APInv I WHERE I.VendorID = V.VendorID) "
            "AS Owed "
            "FROM Vendor V WHERE EXISTS (SELECT * FROM APInv X WHERE X.VendorID = V.VendorID AND "
            "X.Posted = true) ORDER BY V.VendorNo");
    EXPECT_EQ(owed.Texts(), (std::vector<std::string>{"V100", "V200", "V300"}));
    EXPECT_EQ(owed.Column("Owed").Type, FieldType::Currency);
    EXPECT_EQ(owed.Rows[1][1], Value(Units(4123456)));

    Result having = Run("SELECT VendorID, SUM(Owing) AS Total FROM APInv GROUP BY VendorID HAVING "
                        "SUM(Owing) > 100");
    ASSERT_EQ(having.Rows.size(), 1u);
    EXPECT_EQ(having.Rows[0][0], Value(std::int64_t{2}));

    // A bare name that two joined tables have is read from the first of them.
    Result first = Run(
        "SELECT VendorID, InvoiceNo FROM APInv I INNER JOIN Vendor V ON V.VendorID = I.VendorID "
        "WHERE APInvoiceID = 5");
    EXPECT_EQ(first.Rows[0][0], Value(std::int64_t{3}));

    Result gone = Run("DELETE FROM APCheq WHERE VendorID NOT IN (SELECT VendorID FROM Vendor)");
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM APCheq"), 3);
    EXPECT_EQ(gone.Statement.TargetTable, "APCheq");

    Run("UPDATE APInv I SET Owing = I.InvoiceAmount - 0.5 WHERE I.APInvoiceID IN (2, 3)");
    EXPECT_EQ(Scalar("SELECT SUM(Owing) FROM APInv WHERE APInvoiceID IN (2, 3)"),
              2505000 - 5000 + 123456 - 5000);
}

TEST_F(SqlTranslation, UnionBranchesKeepTheirOwnTopAndAllRows) {
    Result r = Run(
        "SELECT TOP 1 VendorNo AS No FROM Vendor UNION ALL SELECT InvoiceNo FROM APInv WHERE "
        "VendorID = 1 UNION ALL SELECT InvoiceNo FROM APInv WHERE VendorID = 1 ORDER BY No DESC");
    EXPECT_EQ(r.Texts(), (std::vector<std::string>{"V100", "A-2", "A-2", "A-1", "A-1"}));
    Result distinct =
        Run("SELECT VendorID FROM APInv UNION SELECT VendorID FROM APCheq ORDER BY 1");
    EXPECT_EQ(distinct.Rows.size(), 4u); // 1, 2, 3 and 9
}

TEST_F(SqlTranslation, TextIsReadAsWritten) {
    // Comments, names in brackets and in quotes, != and numbers without a leading digit.
    Result r = Run("/* unpaid */ SELECT [InvoiceNo], \"Owing\" -- the amount\n"
                   "FROM APInv WHERE Owing != 0 AND Owing > .5 AND InvoiceNo LIKE 'A%';");
    EXPECT_EQ(r.Texts(), (std::vector<std::string>{"A-1"}));
    Result values =
        Run("SELECT 2.5 AS F, 7 AS I, 'it''s' AS S, Null AS N, true AS B FROM FStmt TOP 1");
    EXPECT_EQ(values.Rows[0][0], Value(2.5));
    EXPECT_EQ(values.Rows[0][1], Value(std::int64_t{7}));
    EXPECT_EQ(values.Rows[0][2], Value("it's"));
    EXPECT_TRUE(values.Rows[0][3].IsNull());
    EXPECT_FALSE(values.Column("N").TypeKnown);
    EXPECT_EQ(values.Rows[0][4], Value(true));
    EXPECT_EQ(values.Column("B").Type, FieldType::Boolean);
    Result many = Run("INSERT INTO Warehse (WarehouseID, WarehouseName) VALUES (8, 'h'), (9, 'i')");
    EXPECT_EQ(Scalar("SELECT COUNT(*) FROM Warehse"), 5);
    EXPECT_EQ(many.Statement.StatementKind, Kind::Insert);
}

TEST_F(SqlTranslation, DateAndMoneyHelpersGiveNullForWhatTheyCannotRead) {
    Result r = Run(
        "SELECT CAST('2017-02-30' AS DATE) AS Bad, CAST(InvoiceNo AS DATE) AS NoDate, "
        "YEAR(DiscountDate) AS NoYear, DiscountDate + 1 AS NoSum, InvoiceDate + 365 AS LeapAhead, "
        "CAST(-Owing AS CHAR(20)) AS Neg, 'x' + DiscountAmount AS NoText, "
        "CAST('1,234.56' AS MONEY) AS Typed FROM APInv WHERE APInvoiceID = 5");
    ASSERT_EQ(r.Rows.size(), 1u);
    const auto& row = r.Rows[0];
    for (int i : {0, 1, 2, 3, 6})
        EXPECT_TRUE(row[static_cast<std::size_t>(i)].IsNull()) << i;
    EXPECT_EQ(row[4], Value(Date::FromYmd(2017, 2, 28)));
    EXPECT_EQ(row[5], Value("-75.25"));
    EXPECT_EQ(row[7], Value(Cents(123456)));
}

TEST_F(SqlTranslation, QuotesAndColonsInsideStringsAreText) {
    Result r = Run("SELECT VendorID FROM Vendor WHERE VendorName = 'O''Brien: Ltd' OR VendorNo = "
                   ":No ORDER BY VendorID",
                   {{"No", Value("V100")}});
    ASSERT_EQ(r.Statement.Params.size(), 1u);
    EXPECT_EQ(r.Statement.Params[0].Name, "No");
    ASSERT_EQ(r.Rows.size(), 2u);
    EXPECT_EQ(r.Rows[1][0], Value(std::int64_t{4}));
    // A name written twice fills two slots of that name.
    Result twice = Run(
        "SELECT InvoiceNo FROM APInv WHERE VendorID = :V OR APInvoiceID = :v ORDER BY InvoiceNo",
        {{"V", Value(3)}});
    ASSERT_EQ(twice.Statement.Params.size(), 2u);
    EXPECT_TRUE(SameName(twice.Statement.Params[1].Name, "V"));
    EXPECT_EQ(twice.Texts(), (std::vector<std::string>{"B-1", "C-1"}));
}

TEST_F(SqlTranslation, BadStatementsNameWhatAndWhere) {
    EngineError e = TranslateError("SELECT FROM WHERE");
    EXPECT_EQ(e.ErrorCode(), errSqlSyntax);
    EXPECT_STREQ(e.what(),
                 "SQL error: expected an expression but found 'FROM' at line 1, column 8");
    e = TranslateError("SELECT InvoiceNo\nFROM APInv\n  WHERE Owing >");
    EXPECT_EQ(e.ErrorCode(), errSqlSyntax);
    EXPECT_NE(std::string(e.what()).find("end of statement at line 3, column 16"),
              std::string::npos)
        << e.what();
    EXPECT_EQ(TranslateError("SELECT 'abc FROM APInv").ErrorCode(), errSqlSyntax);
    EXPECT_EQ(TranslateError("SELECT InvoiceNo FROM APInv WHERE Owing = 1 extra").ErrorCode(),
              errSqlSyntax);
    EXPECT_EQ(TranslateError("SELECT NOSUCHFUNCTION(InvoiceNo) FROM APInv").ErrorCode(),
              errSqlSyntax);
    EXPECT_EQ(TranslateError("SELECT InvoiceNo + 1 FROM APInv ORDER BY 1 TOP x").ErrorCode(),
              errSqlSyntax);
    EXPECT_EQ(TranslateError("").ErrorCode(), errSqlSyntax);

    e = TranslateError("SELECT * FROM NoSuchTable");
    EXPECT_EQ(e.ErrorCode(), errTableNotFound);
    EXPECT_NE(std::string(e.what()).find("NoSuchTable"), std::string::npos);
    e = TranslateError("SELECT NoSuchColumn FROM APInv");
    EXPECT_EQ(e.ErrorCode(), errFieldNotFound);
    EXPECT_NE(std::string(e.what()).find("'NoSuchColumn' not found in table 'APInv'"),
              std::string::npos);
    EXPECT_EQ(TranslateError("SELECT X.InvoiceNo FROM APInv I").ErrorCode(), errFieldNotFound);
    EXPECT_EQ(TranslateError("SELECT I.Nope FROM APInv I").ErrorCode(), errFieldNotFound);
    EXPECT_EQ(TranslateError("INSERT INTO Vendor (Nope) VALUES (1)").ErrorCode(), errFieldNotFound);
    EXPECT_EQ(TranslateError("INSERT INTO Vendor (VendorID, VendorNo) VALUES (1)").ErrorCode(),
              errSqlSyntax);
    EXPECT_EQ(TranslateError("SELECT * INTO \"\\Memory\\X\" FROM APInv UNION SELECT * INTO "
                             "\"\\Memory\\Y\" FROM APInv")
                  .ErrorCode(),
              errSqlSyntax);
}

} // namespace
