// A second job posting the same company. It opens the company, prints "ready", waits until the
// start file exists (so that two of them post at the same moment), posts every unposted
// voucher, answering Retry while the other job holds the tables, and prints "posted <n>".
// A failure prints "error: <message>" and exits 2.
//
//   ledger_posting_runner <company folder> <start file>

#include "ledger/posting/PostingRun.h"
#include "store/Database.h"
#include "store/Session.h"
#include "support/WorkstationStart.h"

#include <chrono>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>

int main(int argc, char** argv) {
    if (argc != 3) {
        std::cerr << "usage: ledger_posting_runner <company folder> <start file>\n";
        return 64;
    }
    try {
        corvane::store::Session session;
        corvane::store::Database db(session);
        db.SetDirectory(argv[1]);
        db.Open();
        corvane::tests::AwaitStart(argv[2]);
        int questions = 0;
        corvane::ledger::PostingRun run(db);
        auto posted = run.Run([&](const std::string&) { return ++questions < 50; });
        std::cout << "posted " << posted << std::endl;
        return 0;
    } catch (const std::exception& e) {
        std::cout << "error: " << e.what() << std::endl;
        return 2;
    }
}
