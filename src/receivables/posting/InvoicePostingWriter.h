#pragma once

#include "store/BulkWriter.h"

#include "receivables/posting/InvoicePosting.h"

#include <cstdint>
#include <map>
#include <optional>
#include <utility>

namespace corvane::store {
class Database;
}

namespace corvane::receivables {

// Where a voucher of a receivables document stands: its period, date and customer.
struct VoucherPlace {
    int GLYear = 0, GLPeriod = 0;
    Date TransDate;
    std::int64_t CustomerID = 0;
};

// Writes what posting an invoice or a payment computes, inside the run's transaction. The run holds
// the control tables exclusively, so their counters are read once, handed out in memory and written
// back by Flush; the balances of customers and stock are read once each, changed in memory and
// written back by Flush as well. Call Flush before the commit.
class InvoicePostingWriter {
public:
    explicit InvoicePostingWriter(store::Database& db);

    // Writes the header and lines of a voucher of the invoice's period, drawing its id and the
    // first number of the period that no voucher holds yet. Returns its JVID.
    std::int64_t WriteVoucher(const VoucherToWrite& voucher, const InvoiceToPost& invoice,
                              std::optional<std::int64_t> arInvoiceId,
                              std::optional<std::int64_t> paymentId);
    std::int64_t WriteVoucher(const VoucherToWrite& voucher, const VoucherPlace& place,
                              std::optional<std::int64_t> arInvoiceId,
                              std::optional<std::int64_t> paymentId);
    // Posted, with the rate that was used; the only moment the rate is fixed on the invoice.
    void MarkPosted(std::int64_t arInvoiceId, double rate);
    void SetUnitCost(std::int64_t arInvoiceId, std::int64_t seq, std::optional<Money> cost);
    void AddToCustomerBalance(std::int64_t customerId, Money amount);
    // The stock history of the sale and the warehouse's quantity on hand.
    void SellStock(const StockMove& move, const InvoiceToPost& invoice);
    // The finished payment of a point-of-sale amount and its link to the invoice; returns its id.
    std::int64_t WritePayment(const InvoiceToPost& invoice);

    void Flush();

private:
    struct Counter {
        std::optional<std::int64_t> Next; // as read; nothing when the control row is missing
        bool Changed = false;
    };
    struct Balance {
        bool Exists = false;
        bool Changed = false;
        std::optional<double> Quantity; // stock
        Money Amount;                   // customers
    };
    std::int64_t NextJVID();
    std::int64_t NextJVNumber(int year, int period);
    std::int64_t NextPaymentID();
    std::int64_t MaxPlusOne(const char* sql);

    store::Database& db_;
    // The vouchers, their lines and the stock history go in by batches; nothing in the run
    // reads them back.
    store::BulkInsert vouchers_, voucherLines_, stockHistory_;
    // The point-of-sale payments and their links, one row each as the run meets them.
    store::BulkInsert payments_, paymentLinks_;
    store::BulkLookup numberTaken_;
    store::BulkKeyedUpdate posted_, unitCost_;
    // Each balance read once, written back by Flush: changed where it was, added where not.
    store::BulkLookup findCustomer_;
    store::BulkKeyedUpdate setCustomer_;
    store::BulkInsert newCustomer_;
    store::BulkLookup findStock_;
    store::BulkKeyedUpdate setStock_;
    store::BulkInsert newStock_;
    // The control rows: every row takes the counters, as the run holds the tables.
    store::BulkKeyedUpdate setJVCtl_;
    store::BulkInsert newJVCtl_;
    store::BulkKeyedUpdate setPmtCtl_;
    store::BulkInsert newPmtCtl_;
    bool jvCtlExists_ = false, pmtCtlExists_ = false;
    Counter jvId_, jvNumber_, paymentId_;
    std::map<std::int64_t, Balance> customers_;
    std::map<std::pair<std::int64_t, std::optional<std::int64_t>>, Balance> stock_;
    std::optional<std::int64_t> lastHistoryId_;
};

} // namespace corvane::receivables
