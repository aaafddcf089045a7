#include "ledger/posting/Unposting.h"

#include "core/Exception.h"
#include "ledger/posting/LedgerWriter.h"
#include "ledger/posting/PostingRun.h"
#include "ledger/posting/TableLockRetry.h"
#include "ledger/posting/VoucherReader.h"
#include "store/Database.h"
#include "store/Table.h"
#include "ui/Application.h"
#include "ui/WaitCursor.h"

namespace corvane::ledger {

bool UnpostJV(ui::Application& app, store::Database& db, std::int64_t jvid, int fiscalYear) {
    VoucherReader reader(db);
    auto voucher = reader.Read(jvid);
    if (!voucher) return false;
    if (voucher->GLYear < fiscalYear) {
        app.MessageDlg(unposting::ClosedYearMessage, ui::MsgType::Information, {ui::mbOK});
        return false;
    }
    if (app.MessageDlg(unposting::Question, ui::MsgType::Confirmation, {ui::mbYes, ui::mbNo}) !=
        ui::mbYes)
        return false;

    // Only the totals are locked: the test of the Posted flag below stands in for a lock on
    // the vouchers.
    store::Table actual(db, "GLActual");
    store::TableLock lock(actual, PostingRun::ActualLockMessage, AskRetryThrough(app));
    ui::WaitCursor wait(app);

    store::Transaction transaction(db, {"JV", "GLActual", "GLHist"});
    store::Table jv(db, "JV");
    jv.Open();
    if (!jv.Locate("JVID", {store::Value(jvid)}))
        throw Exception(unposting::AlreadyUnpostedMessage);
    jv.Edit();
    if (!jv.FieldByName("Posted").AsBoolean()) {
        jv.Cancel();
        throw Exception(unposting::AlreadyUnpostedMessage);
    }
    jv.FieldByName("Posted").SetAsBoolean(false);
    jv.Post();
    jv.Close();

    // The voucher as it stands now, under the lock.
    voucher = reader.Read(jvid);
    LedgerWriter writer(db);
    const VoucherEffect effect = UnpostingEffect(*voucher);
    if (writer.CountHistory(jvid) > 0) {
        // Its own rows, reversing rows included, simply go.
        writer.DeleteHistory(jvid);
    } else {
        // Its history was purged: rows that cancel it stand in for the missing ones.
        for (const auto& row : effect.History)
            writer.WriteHistory(*voucher, row);
    }
    for (const auto& delta : effect.Balances)
        writer.AddToTotals(delta);
    writer.Flush();
    transaction.Commit();
    return true;
}

} // namespace corvane::ledger
