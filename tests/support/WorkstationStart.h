#pragma once

#include <chrono>
#include <filesystem>
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

} // namespace corvane::tests
