#pragma once

#include "PostingFixture.h"
#include "ledger/posting/PostingRun.h"
#include "ledger/posting/Unposting.h"
#include "ui/FormDriver.h"

#include <string>

namespace corvane::testing {

// The posting company with a revenue account and an account nothing is posted to, and the
// ledger's own posting and unposting runs to fill the totals and history the lists read.
class InquiryTest : public PostingTest {
protected:
    static constexpr int Sales = 4, Unused = 5;

    void SetUp() override {
        PostingTest::SetUp();
        AddAccount(Sales, "4000", "Sales", 3);
        AddAccount(Unused, "6000", "Unused", 4);
    }

    void PostAll() { ledger::PostingRun(db_).Run({}); }
    bool Unpost(int jvid) {
        dialogs.Answer(ledger::unposting::Question, ui::mbYes);
        return ledger::UnpostJV(app, db_, jvid, 2017);
    }

    // A modal dialog worked by script the next time it shows.
    void WhenModal(const std::string& name, std::function<void(ui::FormDriver&)> script) {
        host.ScriptModal(name, [script](ui::Form& form) {
            ui::FormDriver d(form);
            script(d);
        });
    }

    std::string LastMessage() const { return dialogs.LastText(); }
};

} // namespace corvane::testing
