#include "cli/LedgerCommands.h"

#include "cli/CommandCompany.h"
#include "core/RegionalSettings.h"
#include "store/FileError.h"

#include "ledger/posting/LedgerCheck.h"
#include "ledger/posting/LedgerExport.h"
#include "ledger/posting/PostingRun.h"
#include "receivables/posting/InvoicePostingRun.h"
#include "receivables/posting/PaymentPostingRun.h"
#include "receivables/posting/ReceivablesCheck.h"
#include "store/Database.h"
#include "store/Session.h"

#include <exception>
#include <string>

namespace corvane::cli {

int PostVouchers(const std::string& folder, std::ostream& out, std::ostream& err) {
    store::Session session;
    store::Database db(session);
    OpenForCommand(db, folder, "JVs", "JVs");
    // Nobody is there to answer the lock question: the store's own retries are the wait, and
    // the question itself, which names the table another job holds, is what the user reads.
    std::string lockQuestion;
    auto giveUp = [&lockQuestion](const std::string& question) {
        lockQuestion = question;
        return false;
    };
    try {
        // The invoices first, as the invoice list does before it offers the vouchers' posting:
        // their vouchers then go to the ledger in the same command.
        const auto invoices = receivables::InvoicePostingRun(db).Run(giveUp);
        out << invoices << " invoice(s) posted\n";
        // Then the payments, which settle the invoices posted before them.
        receivables::PaymentPostingRun payments(db);
        payments.CheckWording = ProcessCountryName() == "United States";
        out << payments.Run(giveUp) << " payment(s) posted\n";
        const auto posted = ledger::PostingRun(db).Run(giveUp);
        out << posted << " JV(s) posted\n";
        return 0;
    } catch (const store::EngineError& e) {
        err << (lockQuestion.empty() ? store::NotDoneMessage("Posting", e) : lockQuestion) << "\n";
        return 1;
    } catch (const std::exception& e) {
        err << (lockQuestion.empty() ? std::string(e.what()) : lockQuestion) << "\n";
        return 1;
    }
}

int CheckLedger(const std::string& folder, std::ostream& out) {
    store::Session session;
    store::Database db(session);
    OpenForCommand(db, folder, "GLReports", "GL Reports");
    auto differences = ledger::CheckLedger(db);
    for (const auto& line : receivables::CheckReceivables(db))
        differences.push_back(line);
    for (const auto& line : differences)
        out << line << "\n";
    if (!differences.empty()) return 1;
    out << "ledger ok\nreceivables ok\n";
    return 0;
}

int ExportLedger(const std::string& folder, std::ostream& out) {
    store::Session session;
    store::Database db(session);
    OpenForCommand(db, folder, "GLReports", "GL Reports");
    ledger::ExportLedger(db, out);
    return 0;
}

} // namespace corvane::cli
