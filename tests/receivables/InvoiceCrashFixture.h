#pragma once

#include "ledger/posting/LedgerCheck.h"
#include "receivables/InvoiceFixture.h"
#include "receivables/posting/InvoicePostingRun.h"
#include "receivables/posting/ReceivablesCheck.h"

#include "support/CompanyFingerprint.h"

#include <filesystem>
#include <string>
#include <vector>

namespace corvane::testing {

// A company of a thousand printed invoices in both currencies, with stocked items, time lines,
// credit notes and payments at the point of sale, kept closed as a pattern: each round of a
// crash test posts a fresh copy, breaks the run somewhere, and proves on a normal reopen that
// the company is exactly as before the run or exactly as after a whole one.
class InvoiceCrashTest : public InvoiceTest {
protected:
    static constexpr int Invoices = 1000;

    void SetUp() override {
        InvoiceTest::SetUp();
        db_.StartTransaction({"ARInv", "ARInvDet"});
        for (int id = 1; id <= Invoices; ++id) {
            const double sign = id % 17 == 0 ? -1 : 1; // now and then a credit note
            const int customer = id % 3 == 0 ? Abroad : Local;
            std::vector<L> lines{{sign * (1 + id % 4), Money::FromCents(1999 + id), Service},
                                 {sign * (1 + id % 3), C(2000), Widget},
                                 {sign * 1.5, C(1250), Gadget},
                                 {sign * 2, C(9000), 0, Design}};
            const bool pos = customer == Local && id % 10 == 1;
            Money pay;
            if (pos) pay = C(5000);
            AddInvoice(id, customer, lines, true, pay, pos ? 2 : 0,
                       pos ? "Q" + std::to_string(id) : "");
        }
        db_.Commit();
        db_.Close();
        pattern_ = scratch_.Path() + "/pattern";
        work_ = scratch_.Path() + "/company";
        CopyCompanyFiles(folder_.Path(), pattern_);
        FreshCopy();
        before_ = CompanyFingerprint(work_);
        FreshCopy();
        Post(work_);
        after_ = CompanyFingerprint(work_);
        ASSERT_NE(before_, after_);
        db_.Open();
    }

    void FreshCopy() {
        std::filesystem::remove_all(work_);
        std::filesystem::copy(pattern_, work_);
    }

    std::int64_t Post(const std::string& folder) {
        store::Session session;
        store::Database db(session);
        db.SetDirectory(folder);
        db.Open();
        return receivables::InvoicePostingRun(db).Run([](const std::string&) { return false; });
    }

    enum class Outcome { Unposted, Posted, Broken };

    // Reopens the company the normal way and checks that it is sound and holds either none or
    // all of the run: every invoice, balance, stock quantity and control number.
    Outcome CheckWhole(const std::string& what) {
        store::Session session;
        store::Database db(session);
        db.SetDirectory(work_);
        try {
            db.Open();
        } catch (const std::exception& e) {
            ADD_FAILURE() << what << ": the company does not open again: " << e.what();
            return Outcome::Broken;
        }
        {
            store::Statement s(db.Conn(), "PRAGMA main.integrity_check");
            EXPECT_TRUE(s.Step());
            EXPECT_EQ(s.ColumnNatural(0).Str(), "ok") << what;
        }
        EXPECT_EQ(receivables::CheckReceivables(db), std::vector<std::string>{}) << what;
        EXPECT_EQ(ledger::CheckLedger(db), std::vector<std::string>{}) << what;
        std::int64_t posted = 0;
        {
            store::Statement s(db.Conn(), "SELECT count(*) FROM ARInv WHERE Posted = 1");
            s.Step();
            posted = s.ColumnInt(0);
        }
        const std::string now = CompanyFingerprint(db);
        if (now == before_ && posted == 0) return Outcome::Unposted;
        if (now == after_ && posted == Invoices) return Outcome::Posted;
        ADD_FAILURE() << what << ": the company holds part of the run: " << posted << " of "
                      << Invoices << " invoices posted";
        return Outcome::Broken;
    }

    TempFolder scratch_;
    std::string pattern_, work_;
    std::string before_, after_;
};

} // namespace corvane::testing
