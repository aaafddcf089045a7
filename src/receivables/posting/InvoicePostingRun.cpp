#include "receivables/posting/InvoicePostingRun.h"

#include "receivables/posting/InvoicePosting.h"
#include "receivables/posting/InvoicePostingWriter.h"
#include "receivables/posting/InvoiceReader.h"
#include "receivables/posting/RunLocks.h"
#include "store/Database.h"

#include <optional>
#include <vector>

namespace corvane::receivables {

std::int64_t InvoicePostingRun::Run(const ledger::LockRetryQuestion& askRetry) {
    // The control tables are held exclusively and the invoices and both balances locked for the
    // whole run, in this order.
    RunLocks locks(db_, askRetry);
    locks.Exclusive("JVCtl", JVCtlMessage);
    locks.Lock("ARInv", InvoicesLockMessage);
    locks.Lock("CBalance", BalancesLockMessage);
    locks.Lock("IBalance", StockLockMessage);
    locks.Exclusive("ARPmtCtl", PmtCtlMessage);
    store::Transaction transaction(db_, {"ARInv", "ARInvDet", "CBalance", "JV", "JVDet", "JVCtl",
                                         "IBalance", "IHist", "ARPmtCtl", "ARPmt", "ARInvPmt"});
    // Read again under the locks: the list may have changed since the form counted it.
    const std::vector<InvoiceToPost> invoices = InvoiceReader(db_).ReadToPost();
    if (OnStart) OnStart(static_cast<std::int64_t>(invoices.size()));
    if (invoices.empty()) return 0;
    locks.GuardWrites({"JV", "JVDet", "ARInvDet", "IHist", "ARPmt", "ARInvPmt"});
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
