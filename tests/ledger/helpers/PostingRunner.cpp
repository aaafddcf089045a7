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
    return corvane::tests::RunWorkstation(
        argc, argv, 3, "ledger_posting_runner <company folder> <start file>",
        [&](corvane::store::Database& db) {
            corvane::tests::AwaitStart(argv[2]);
            int questions = 0;
            corvane::ledger::PostingRun run(db);
            auto posted = run.Run([&](const std::string&) { return ++questions < 50; });
            std::cout << "posted " << posted << std::endl;
        });
}
