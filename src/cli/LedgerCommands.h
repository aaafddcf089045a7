#pragma once

#include <ostream>
#include <string>

namespace corvane::cli {

// "post COMPANY": posts every printed invoice, every unposted payment, then every unposted voucher,
// and prints how many; when it cannot, prints why on err (for a lock held by another job, the
// question the windows would ask) and returns 1.
int PostVouchers(const std::string& folder, std::ostream& out, std::ostream& err);
// "check COMPANY": prints each difference the ledger and receivables checks find and returns 1,
// else prints "ledger ok" and "receivables ok" and returns 0.
int CheckLedger(const std::string& folder, std::ostream& out);
// "export-ledger COMPANY": the posted history as a journal, on out.
int ExportLedger(const std::string& folder, std::ostream& out);

} // namespace corvane::cli
