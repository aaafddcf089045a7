#pragma once

#include "store/Database.h"
#include "store/Session.h"

#include <chrono>
#include <exception>
#include <filesystem>
#include <functional>
#include <iostream>
#include <thread>

namespace corvane::tests {

// The start of a second workstation in a two-process test: it says "ready" once its company is
// open, then waits (at most 20 s) until the test makes the start file, so that both workstations
// begin their work together.
inline void AwaitStart(const char* startFile) {
    std::cout << "ready" << std::endl;
    for (int i = 0; i < 20000 && !std::filesystem::exists(startFile); ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
}

// The life of a second workstation whose arguments are the company folder, the start file and
// expectedArgc - 3 more, as usage names them: it opens the company and hands it to work, which
// calls AwaitStart when it is ready. A failure prints "error: <message>" and ends the process with
// 2; wrong arguments print the usage and end it with 64.
inline int RunWorkstation(int argc, char** argv, int expectedArgc, const char* usage,
                          const std::function<void(store::Database& db)>& work) {
    if (argc != expectedArgc) {
        std::cerr << "usage: " << usage << "\n";
        return 64;
    }
    try {
        store::Session session;
        store::Database db(session);
        db.SetDirectory(argv[1]);
        db.Open();
        work(db);
        return 0;
    } catch (const std::exception& e) {
        std::cout << "error: " << e.what() << std::endl;
        return 2;
    }
}

} // namespace corvane::tests
