// A second process that works on a company as a form would: it opens a table cursor, takes
// what it is told (a record in edit, a table lock or the table exclusively), prints "ready" and
// holds it until it is killed. A refusal prints "error <code>: <message>" and exits 2.
//
//   store_cursor_holder <company folder> edit|locktable|exclusive <table>

#include "store/Database.h"
#include "store/EngineError.h"
#include "store/Session.h"
#include "store/Table.h"

#include <iostream>
#include <string>
#include <unistd.h>

using namespace corvane::store;

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr
            << "usage: store_cursor_holder <company folder> edit|locktable|exclusive <table>\n";
        return 64;
    }
    const std::string folder = argv[1], command = argv[2], table = argv[3];
    try {
        Session session;
        session.LockRetryCount = 1;
        Database db(session);
        db.SetDirectory(folder);
        db.Open();
        Table t(db, table);
        t.SetExclusive(command == "exclusive");
        t.Open();
        if (command == "edit")
            t.Edit();
        else if (command == "locktable")
            t.LockTable();
        else if (command != "exclusive") {
            std::cerr << "unknown command '" << command << "'\n";
            return 64;
        }
        std::cout << "ready" << std::endl;
        for (;;)
            pause();
    } catch (const EngineError& e) {
        std::cout << "error " << e.ErrorCode() << ": " << e.what() << std::endl;
        return 2;
    }
}
