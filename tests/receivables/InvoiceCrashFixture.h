#pragma once

#include "ledger/AllOrNothing.h"
#include "ledger/posting/LedgerCheck.h"
#include "receivables/InvoiceFixture.h"
#include "receivables/posting/InvoicePostingRun.h"
#include "receivables/posting/ReceivablesCheck.h"

#include <optional>
#include <string>
#include <vector>

namespace corvane::testing {

// A company of a thousand printed invoices in both currencies, with stocked items, time lines,
// credit notes and payments at the point of sale, kept closed as the pattern of the crash tests'
// rounds.
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
        runs_.emplace(
            scratch_.Path(), folder_.Path(),
            AllOrNothing::Posting{
                [](store::Database& db) {
                    return receivables::InvoicePostingRun(db).Run(
                        [](const std::string&) { return false; });
                },
                Invoices, "SELECT count(*) FROM ARInv WHERE Posted = 1",
                [](store::Database& db, const std::string& what) {
                    EXPECT_EQ(receivables::CheckReceivables(db), std::vector<std::string>{})
                        << what;
                    EXPECT_EQ(ledger::CheckLedger(db), std::vector<std::string>{}) << what;
                }});
        db_.Open();
    }

    using Outcome = AllOrNothing::Outcome;

    TempFolder scratch_;
    std::optional<AllOrNothing> runs_;
};

} // namespace corvane::testing
