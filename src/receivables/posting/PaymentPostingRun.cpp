#include "receivables/posting/PaymentPostingRun.h"

#include "receivables/posting/InvoicePostingWriter.h"
#include "receivables/posting/PaymentPosting.h"
#include "receivables/posting/PaymentPostingWriter.h"
#include "receivables/posting/PaymentReader.h"
#include "receivables/posting/RunLocks.h"
#include "store/Database.h"

#include <vector>

namespace corvane::receivables {

std::int64_t PaymentPostingRun::Run(const ledger::LockRetryQuestion& askRetry) {
    // The vouchers' control table first, then the payments and the balances, for the whole run;
    // the invoices are covered by the transaction alone.
    RunLocks locks(db_, askRetry);
    locks.Exclusive("JVCtl", JVCtlMessage);
    locks.Lock("ARPmt", PaymentsLockMessage);
    locks.Lock("CBalance", BalancesLockMessage);
    store::Transaction transaction(db_, {"ARPmt", "ARInv", "CBalance", "JV", "JVDet", "JVCtl"});
    // Read again under the locks: the list may have changed since the form counted it.
    const std::vector<PaymentToPost> payments = PaymentReader(db_).ReadToPost();
    if (OnStart) OnStart(static_cast<std::int64_t>(payments.size()));
    if (payments.empty()) return 0;
    locks.GuardWrites({"JV", "JVDet", "ARInv"});
    InvoicePostingWriter vouchers(db_);
    PaymentPostingWriter writer(db_);
    for (const PaymentToPost& p : payments) {
        const PaymentPostingEffect effect = PaymentPosting(p, CheckWording);
        writer.MarkPosted(p.PaymentID);
        for (const InvoiceSettlement& line : effect.Invoices)
            writer.Settle(line);
        vouchers.AddToCustomerBalance(p.CustomerID, effect.BalanceChange);
        vouchers.WriteVoucher(effect.Voucher,
                              VoucherPlace{p.GLYear, p.GLPeriod, p.PaymentDate, p.CustomerID},
                              std::nullopt, p.PaymentID);
        if (OnPaymentPosted) OnPaymentPosted();
    }
    vouchers.Flush();
    transaction.Commit();
    return static_cast<std::int64_t>(payments.size());
}

} // namespace corvane::receivables
