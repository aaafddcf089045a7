// Another workstation changing the company at a moment the test chooses. It opens the company,
// prints "ready", waits until the start file exists, runs the statement in one transaction
// (waiting for the lock as any writer does) and prints "committed". A failure prints
// "error: <message>" and exits 2.
//
//   ledger_sql_writer <company folder> <start file> <statement>

#include "store/Database.h"
#include "store/Session.h"
#include "store/sql/Connection.h"
#include "support/WorkstationStart.h"

#include <chrono>
#include <exception>
#include <filesystem>
#include <iostream>
#include <thread>

int main(int argc, char** argv) {
    return corvane::tests::RunWorkstation(
        argc, argv, 4, "ledger_sql_writer <company folder> <start file> <statement>",
        [&](corvane::store::Database& db) {
            corvane::tests::AwaitStart(argv[2]);
            db.StartTransaction({});
            db.Conn().Exec(argv[3]);
            db.Commit();
            std::cout << "committed" << std::endl;
        });
}
