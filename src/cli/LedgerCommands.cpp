#include "cli/LedgerCommands.h"

#include "ledger/posting/LedgerCheck.h"
#include "ledger/posting/LedgerExport.h"
#include "ledger/posting/PostingRun.h"
#include "store/Database.h"
#include "store/Session.h"

#include <exception>
#include <string>

namespace corvane::cli {

int PostVouchers(const std::string& folder, std::ostream& out, std::ostream& err) {
    store::Session session;
    store::Database db(session);
    db.SetDirectory(folder);
    db.Open();
    ledger::PostingRun run(db);
    // Nobody is there to answer the lock question: the store's own retries are the wait, and
    // the question itself, which names the table another job holds, is what the user reads.
    std::string lockQuestion;
    try {
        const auto posted = run.Run([&lockQuestion](const std::string& question) {
            lockQuestion = question;
            return false;
        });
        out << posted << " JV(s) posted\n";
        return 0;
    } catch (const std::exception& e) {
        err << (lockQuestion.empty() ? std::string(e.what()) : lockQuestion) << "\n";
        return 1;
    }
}

int CheckLedger(const std::string& folder, std::ostream& out) {
    store::Session session;
    store::Database db(session);
    db.SetDirectory(folder);
    db.Open();
    const auto differences = ledger::CheckLedger(db);
    for (const auto& line : differences)
        out << line << "\n";
    if (!differences.empty()) return 1;
    out << "ledger ok\n";
    return 0;
}

int ExportLedger(const std::string& folder, std::ostream& out) {
    store::Session session;
    store::Database db(session);
    db.SetDirectory(folder);
    db.Open();
    ledger::ExportLedger(db, out);
    return 0;
}

} // namespace corvane::cli
