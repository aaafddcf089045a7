// A second workstation starting jobs and tasks. It opens the company, prints "ready", waits until
// the start file exists, draws the given count of job numbers and task numbers in turn
// (answering Retry whenever JobCtl stays held) and prints each pair as "<job> <task>", then
// "done".
//
//   timebilling_job_drawer <company folder> <start file> <count>

#include "store/Database.h"
#include "store/Session.h"
#include "support/WorkstationStart.h"
#include "timebilling/domain/NumberDraws.h"

#include <chrono>
#include <exception>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>

int main(int argc, char** argv) {
    return corvane::tests::RunWorkstation(
        argc, argv, 4, "timebilling_job_drawer <company folder> <start file> <count>",
        [&](corvane::store::Database& db) {
            corvane::tests::AwaitStart(argv[2]);
            const int count = std::stoi(argv[3]);
            const auto retry = [](const std::string&) { return true; };
            for (int i = 0; i < count; ++i) {
                const std::int64_t job = corvane::timebilling::DrawJobId(db, retry);
                const std::int64_t task = corvane::timebilling::DrawTaskId(db, retry);
                std::cout << job << " " << task << "\n";
            }
            std::cout << "done" << std::endl;
        });
}
