#include "VoucherFixture.h"
#include "ledger/domain/Voucher.h"
#include "ledger/domain/VoucherNumbering.h"
#include "ledger/domain/VoucherTexts.h"
#include "store/EngineError.h"
#include "support/ChildProcess.h"

using namespace corvane;
using namespace corvane::ledger;
using corvane::testing::VoucherTest;
namespace text = corvane::ledger::voucher_text;

namespace {

class VoucherDocument : public VoucherTest {
protected:
    CompanyPeriods Company() {
        CompanyPeriods company;
        company.FiscalYear = 2017;
        company.ErrorFrom = {2017, 1};
        company.ErrorTo = {2017, 12};
        company.WarnFrom = {2017, 1};
        company.WarnTo = {2017, 6};
        return company;
    }
    static VoucherFacts Balanced() {
        VoucherFacts facts;
        facts.VoucherPeriod = {2017, 3};
        facts.Description = "Rent";
        facts.HasLines = true;
        facts.Debits = Money::FromCents(1000);
        facts.Credits = Money::FromCents(-1000);
        facts.Amount = Money::FromCents(1000);
        return facts;
    }

    // A voucher in insert on a fresh cursor, with its lines in a scratch table.
    struct Draft {
        store::Table header;
        store::Table lines;
    };
    std::unique_ptr<Draft> NewDraft(int id, int number, std::vector<Money> amounts) {
        auto draft = std::unique_ptr<Draft>(
            new Draft{store::Table(db_, "JV"), store::Table(db_, "Lines" + std::to_string(id))});
        store::TableDef def = db_.TableDefinition(store::Database::MainSchema, "JVDet");
        def.Name = "Lines" + std::to_string(id);
        db_.CreateTable(def, store::Database::MemorySchema);
        draft->lines.SetDatabaseName("memory");
        draft->lines.Open();
        int seq = 1;
        for (Money amount : amounts) {
            draft->lines.Append();
            draft->lines.FieldByName("JVID").SetAsInteger(id);
            draft->lines.FieldByName("Seq").SetAsInteger(seq++);
            draft->lines.FieldByName("GLAccountID").SetAsInteger(1);
            draft->lines.FieldByName("GLAmount").SetAsMoney(amount);
            draft->lines.Post();
        }
        store::Table& h = draft->header;
        h.Open();
        h.Append();
        h.FieldByName("JVID").SetAsInteger(id);
        h.FieldByName("JVNumber").SetAsInteger(number);
        h.FieldByName("GLYear").SetAsInteger(2017);
        h.FieldByName("GLPeriod").SetAsInteger(3);
        h.FieldByName("Source").SetAsString("GL");
        h.FieldByName("TransType").SetAsString("JV");
        h.FieldByName("TransDate").SetAsDate(Date::FromYmd(2017, 3, 1));
        h.FieldByName("TransDescription").SetAsString("Draft " + std::to_string(id));
        h.FieldByName("JVAmount").SetAsMoney(Money::FromCents(1000));
        h.FieldByName("Posted").SetAsBoolean(false);
        h.FieldByName("AutoReverse").SetAsBoolean(false);
        return draft;
    }
    std::int64_t LinesOf(int id) {
        store::Query q(db_, "SELECT COUNT(*) AS N FROM JVDet WHERE JVID = " + std::to_string(id));
        q.Open();
        return q.FieldByName("N").AsInteger();
    }
};

TEST_F(VoucherDocument, TheChecksRunInTheirOrderAndThePeriodWarningWaitsForTheUser) {
    EXPECT_TRUE(ValidateVoucher(Company(), Balanced()).Ok());

    struct Case {
        const char* what;
        std::function<void(VoucherFacts&)> change;
        VoucherFault fault;
    };
    const Case cases[] = {
        {"closed year",
         [](VoucherFacts& f) {
             f.VoucherPeriod = {2016, 12};
             f.Description = "";
         },
         VoucherFault::PeriodRefused},
        {"expected range",
         [](VoucherFacts& f) {
             f.VoucherPeriod = {2017, 9};
             f.HasLines = false;
         },
         VoucherFault::PeriodWarning},
        {"no description",
         [](VoucherFacts& f) {
             f.Description = "  ";
             f.HasLines = false;
         },
         VoucherFault::NoDescription},
        {"no lines",
         [](VoucherFacts& f) {
             f.HasLines = false;
             f.Debits = Money();
         },
         VoucherFault::NoLines},
        // One line of 0 lacks a debit first; the zero amount is only the last guard.
        {"one line of 0", [](VoucherFacts& f) { f.Debits = f.Credits = f.Amount = Money(); },
         VoucherFault::NoDebits},
        {"no credit", [](VoucherFacts& f) { f.Credits = Money(); }, VoucherFault::NoCredits},
        {"out by a ten-thousandth",
         [](VoucherFacts& f) { f.Credits = Money::FromUnits(-10000001); },
         VoucherFault::OutOfBalance},
        {"no amount", [](VoucherFacts& f) { f.Amount = Money(); }, VoucherFault::NoAmounts},
    };
    for (const Case& c : cases) {
        VoucherFacts facts = Balanced();
        c.change(facts);
        EXPECT_EQ(ValidateVoucher(Company(), facts).Fault, c.fault) << c.what;
    }
    VoucherFacts late = Balanced();
    late.VoucherPeriod = {2017, 9};
    late.Debits = Money();
    VoucherVerdict confirmed = ValidateVoucher(Company(), late, true);
    EXPECT_EQ(confirmed.Fault, VoucherFault::NoDebits);
    EXPECT_EQ(confirmed.Message, text::NoDebits);
    EXPECT_TRUE(confirmed.InLines());
    EXPECT_TRUE(confirmed.WantsNewLine());
}

TEST_F(VoucherDocument, ASaveWritesHeaderAndLinesTogetherOrNothing) {
    auto first = NewDraft(7, 2001, {Money::FromCents(1000), Money::FromCents(-1000)});
    SaveVoucher(first->header, first->lines);
    EXPECT_EQ(CountRows("JV"), 1);
    EXPECT_EQ(LinesOf(7), 2);

    // The same number in the same period: the header is refused, and its lines go with it.
    auto clash = NewDraft(8, 2001, {Money::FromCents(500), Money::FromCents(-500)});
    try {
        SaveVoucher(clash->header, clash->lines);
        ADD_FAILURE() << "a duplicate number was saved";
    } catch (const store::EngineError& e) {
        EXPECT_EQ(e.ErrorCode(), store::errKeyViolation);
    }
    EXPECT_EQ(CountRows("JV"), 1);
    EXPECT_EQ(LinesOf(8), 0);
    // Mended, the same draft saves.
    clash->header.FieldByName("JVNumber").SetAsInteger(2002);
    SaveVoucher(clash->header, clash->lines);
    EXPECT_EQ(LinesOf(8), 2);

    // Saving again replaces the lines rather than adding to them.
    first->header.Edit();
    first->lines.Last();
    first->lines.Delete();
    SaveVoucher(first->header, first->lines);
    EXPECT_EQ(LinesOf(7), 1);
}

TEST_F(VoucherDocument, ADeleteTakesTheLinesAlongAndRefusesSubledgerAndPostedVouchers) {
    AddVoucher(1, 1001, "GL", "JV", false);
    AddVoucher(2, 1002, "AP", "Inv", false);
    AddVoucher(3, 1003, "GL", "JV", true);
    store::Table jv(db_, "JV");
    jv.Open();
    ASSERT_TRUE(jv.Locate("JVID", {store::Value(2)}));
    EXPECT_EQ(VoucherDeleteRefusal(jv),
              "Unable to delete JV '1002'...\n" + std::string(text::NotGLSource));
    ASSERT_TRUE(jv.Locate("JVID", {store::Value(3)}));
    EXPECT_EQ(VoucherDeleteRefusal(jv),
              "Unable to delete JV '1003'...\n" + std::string(text::AlreadyPosted));
    const std::int64_t keptLines = LinesOf(2);
    ASSERT_TRUE(jv.Locate("JVID", {store::Value(1)}));
    EXPECT_EQ(VoucherDeleteRefusal(jv), "");
    DeleteVoucher(jv);
    EXPECT_EQ(CountRows("JV"), 2);
    EXPECT_EQ(LinesOf(1), 0);
    EXPECT_EQ(LinesOf(2), keptLines);
}

TEST_F(VoucherDocument, VoucherKeysComeFromTheControlRowOrAfterTheHighestId) {
    AddVoucher(41, 1001, "GL", "JV", false);
    auto keys = TakeVoucherKeys(db_, {});
    ASSERT_TRUE(keys);
    EXPECT_EQ(keys->JVID, 42); // no control row: after the highest id
    EXPECT_EQ(keys->JVNumber, 1001);
    // Held by another workstation past every try, the user is asked, and Cancel gives nothing.
    tests::ChildProcess other(CORVANE_CURSOR_HOLDER,
                              std::vector<std::string>{folder_.Path(), "edit", "JVCtl"});
    ASSERT_TRUE(other.WaitForLine("ready"));
    std::string asked;
    EXPECT_FALSE(TakeVoucherKeys(db_, [&](const std::string& message) {
        asked = message;
        return false;
    }));
    EXPECT_EQ(asked, "Unable to open JV Control table exclusively...\nPlease try again later.");
}

} // namespace
