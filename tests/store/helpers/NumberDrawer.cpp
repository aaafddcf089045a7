// Another workstation drawing numbers in the same company. It opens the company, prints "ready",
// waits until the start file exists (so that two of them draw at the same moment), then draws
// <count> numbers and prints each one as "<kind> <number>", then "done".
//
//   store_number_drawer <company folder> <start file> control <count>
//       voucher ids from JVCtl.NextJVID
//   store_number_drawer <company folder> <start file> key <count>
//       new Currency rows whose CurrencyID is the highest + 1
//
// A failure prints "error: <message>" and exits 2.

#include "store/Database.h"
#include "store/NumberDraw.h"
#include "store/Session.h"
#include "store/Table.h"
#include "support/WorkstationStart.h"

#include <chrono>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>
#include <unistd.h>

using namespace corvane::store;

int main(int argc, char** argv) {
    if (argc != 5) {
        std::cerr << "usage: store_number_drawer <folder> <start file> control|key <count>\n";
        return 64;
    }
    const std::string mode = argv[3];
    const int count = std::stoi(argv[4]);
    try {
        Session session;
        Database db(session);
        db.SetDirectory(argv[1]);
        db.Open();
        corvane::tests::AwaitStart(argv[2]);
        Table currencies(db, "Currency");
        currencies.SetDrawnKey("CurrencyID");
        currencies.Open();
        for (int i = 0; i < count; ++i) {
            if (mode == "control") {
                std::int64_t id = 0;
                bool drawn = DrawFromControl(
                    db, "JVCtl", ControlRetry{"JV", 150, 1},
                    [&](ControlRow& row) { id = row.Take("NextJVID", StartWhenZero(1)); },
                    [](const std::string&) { return true; });
                if (!drawn) throw std::runtime_error("gave up");
                std::cout << "control " << id << "\n";
            } else {
                currencies.Append();
                currencies.FieldByName("CurrencyName")
                    .SetAsString("C" + std::to_string(i) + "-" + std::to_string(::getpid()));
                for (const char* account :
                     {"APGLAccountID", "APDiscGLAccountID", "ARGLAccountID", "ARDiscGLAccountID"})
                    currencies.FieldByName(account).SetAsInteger(1);
                currencies.Post();
                std::cout << "key " << currencies.FieldByName("CurrencyID").AsInteger() << "\n";
            }
        }
        std::cout << "done" << std::endl;
        return 0;
    } catch (const std::exception& e) {
        std::cout << "error: " << e.what() << std::endl;
        return 2;
    }
}
