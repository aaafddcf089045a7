#include "receivables/posting/InvoicePostingRun.h"

#include "receivables/posting/InvoicePosting.h"
#include "receivables/posting/InvoicePostingWriter.h"
#include "receivables/posting/InvoiceReader.h"
#include "store/Database.h"
#include "store/LockManager.h"
#include "store/Table.h"

#include <optional>
#include <vector>

namespace corvane::receivables {

namespace {

// The control tables are held exclusively and the invoices and both balances locked for the
// whole run, in this order; a refusal at any step gives back what was taken before it, and the
// end of the run gives everything back.
class RunLocks {
public:
    RunLocks(store::Database& db, const ledger::LockRetryQuestion& ask)
        : jvCtl_(db, "JVCtl"), invoices_(db, "ARInv"), balances_(db, "CBalance"),
          stock_(db, "IBalance"), pmtCtl_(db, "ARPmtCtl") {
        ledger::OpenExclusiveWithRetry(jvCtl_, InvoicePostingRun::JVCtlMessage, ask);
        Lock(invoices_, InvoicePostingRun::InvoicesLockMessage, ask);
        Lock(balances_, InvoicePostingRun::BalancesLockMessage, ask);
        Lock(stock_, InvoicePostingRun::StockLockMessage, ask);
        ledger::OpenExclusiveWithRetry(pmtCtl_, InvoicePostingRun::PmtCtlMessage, ask);
    }
    ~RunLocks() {
        for (store::Table* t : {&pmtCtl_, &stock_, &balances_, &invoices_, &jvCtl_}) {
            if (!t->Active()) continue;
            if (t->TableLocked()) t->UnlockTable();
            t->Close();
        }
    }

private:
    static void Lock(store::Table& t, const char* message, const ledger::LockRetryQuestion& ask) {
        t.Open();
        ledger::LockTableWithRetry(t, message, ask);
    }
    store::Table jvCtl_, invoices_, balances_, stock_, pmtCtl_;
};

// The tables the run writes without a lock of its own: no other job may hold one of them locked
// while rows go in.
class WriteGuards {
public:
    explicit WriteGuards(store::Database& db) {
        for (const char* table : {"JV", "JVDet", "ARInvDet", "IHist", "ARPmt", "ARInvPmt"})
            guards_.push_back(
                db.Locks().GuardWrite(db.LockSlot(store::Database::MainSchema, table), table));
    }

private:
    std::vector<store::LockManager::WriteGuard> guards_;
};

} // namespace

std::int64_t InvoicePostingRun::Run(const ledger::LockRetryQuestion& askRetry) {
    RunLocks locks(db_, askRetry);
    store::Transaction transaction(db_, {"ARInv", "ARInvDet", "CBalance", "JV", "JVDet", "JVCtl",
                                         "IBalance", "IHist", "ARPmtCtl", "ARPmt", "ARInvPmt"});
    // Read again under the locks: the list may have changed since the form counted it.
    const std::vector<InvoiceToPost> invoices = InvoiceReader(db_).ReadToPost();
    if (OnStart) OnStart(static_cast<std::int64_t>(invoices.size()));
    if (invoices.empty()) return 0;
    WriteGuards guards(db_);
    InvoicePostingWriter writer(db_);
    for (const InvoiceToPost& inv : invoices) {
        const InvoicePostingEffect effect = InvoicePosting(inv, CheckWording);
        writer.MarkPosted(inv.ARInvoiceID, inv.StoredRate);
        if (!effect.BalanceChange.IsZero())
            writer.AddToCustomerBalance(inv.CustomerID, effect.BalanceChange);
        writer.WriteVoucher(effect.Invoice, inv, inv.ARInvoiceID, std::nullopt);
        for (const LineCost& cost : effect.UnitCosts)
            writer.SetUnitCost(inv.ARInvoiceID, cost.Seq, cost.UnitCost);
        for (const StockMove& move : effect.Stock)
            writer.SellStock(move, inv);
        if (effect.Payment) {
            const std::int64_t paymentId = writer.WritePayment(inv);
            writer.WriteVoucher(*effect.Payment, inv, std::nullopt, paymentId);
        }
        if (OnInvoicePosted) OnInvoicePosted();
    }
    writer.Flush();
    transaction.Commit();
    return static_cast<std::int64_t>(invoices.size());
}

} // namespace corvane::receivables
