// A workstation importing a file of customers into the same company as another. It writes its
// file of <count> customers (named "<tag> <n>"), opens the company, prints "ready", waits until
// the start file exists (so that two of them start at the same moment), then imports the file in
// one go as the import form does. It prints "imported <n>"; a refusal or failure prints
// "error: <message>" and exits 2.
//
//   inventory_customer_importer <company folder> <start file> <count> <tag>

#include "banking/domain/RowImport.h"
#include "receivables/domain/CustomerImport.h"
#include "store/Database.h"
#include "store/Session.h"
#include "support/WorkstationStart.h"

#include <chrono>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>

using namespace corvane;

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "usage: inventory_customer_importer <company folder> <start file> <count> "
                     "<tag>\n";
        return 64;
    }
    try {
        std::string text = "CustomerName,City\n";
        const int count = std::stoi(argv[3]);
        for (int i = 1; i <= count; ++i)
            text += std::string(argv[4]) + " " + std::to_string(i) + ",Calgary\n";
        const banking::ImportFile file = banking::ParseImportFile(text);

        store::Session session;
        store::Database db(session);
        db.SetDirectory(argv[1]);
        db.Open();
        corvane::tests::AwaitStart(argv[2]);
        const banking::ImportOutcome outcome =
            banking::ImportRows(db, receivables::CustomerImport(db), file, false);
        if (!outcome.Committed)
            throw std::runtime_error("row " + std::to_string(outcome.Refused.front().Row) + ": " +
                                     outcome.Refused.front().Message);
        std::cout << "imported " << outcome.Imported << std::endl;
        return 0;
    } catch (const std::exception& e) {
        std::cout << "error: " << e.what() << std::endl;
        return 2;
    }
}
