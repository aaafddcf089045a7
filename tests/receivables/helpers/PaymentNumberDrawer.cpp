// A second workstation drawing payment ids. It opens the company, prints "ready", waits until
// the start file exists, draws the given count of ids (answering Retry whenever the control
// table stays held) and prints each, then "done".
//
//   receivables_payment_drawer <company folder> <start file> <count>

#include "receivables/payments/domain/PaymentDocument.h"
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
        argc, argv, 4, "receivables_payment_drawer <company folder> <start file> <count>",
        [&](corvane::store::Database& db) {
            corvane::tests::AwaitStart(argv[2]);
            const int count = std::stoi(argv[3]);
            for (int i = 0; i < count; ++i) {
                auto id = corvane::receivables::DrawPaymentID(
                    db, [](const std::string&) { return true; }, 50, 1);
                std::cout << *id << "\n";
            }
            std::cout << "done" << std::endl;
        });
}
