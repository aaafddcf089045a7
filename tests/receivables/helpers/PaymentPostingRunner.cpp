// A second job posting the customer payments of a company. It opens the company, prints "ready",
// waits until the start file exists, posts every unposted payment, answering Retry while another
// job holds the tables, and prints "posted <n>". A failure prints "error: <message>" and exits 2.
//
//   receivables_payment_posting_runner <company folder> <start file>

#include "receivables/posting/PaymentPostingRun.h"
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
        argc, argv, 3, "receivables_payment_posting_runner <company folder> <start file>",
        [&](corvane::store::Database& db) {
            corvane::tests::AwaitStart(argv[2]);
            int questions = 0;
            corvane::receivables::PaymentPostingRun run(db);
            auto posted = run.Run([&](const std::string&) {
                std::this_thread::sleep_for(std::chrono::milliseconds(20));
                return ++questions < 500;
            });
            std::cout << "posted " << posted << std::endl;
        });
}
