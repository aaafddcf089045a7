// A second process for the locking tests. It takes one lock, prints "ready", then holds it
// until it is killed, or for --hold-ms milliseconds after which it releases it and exits 0.
// When the lock cannot be had it prints "error <code>: <message>" and exits 2.
//
//   store_lock_holder [--hold-ms N] <lockfile> <command> <slot> [rowId]

#include "store/EngineError.h"
#include "store/LockManager.h"

#include <chrono>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <unistd.h>
#include <vector>

using corvane::store::EngineError;
using corvane::store::LockManager;
using corvane::store::LockPolicy;

namespace {

constexpr int ExitRefused = 2;
constexpr int ExitUsage = 64;

struct Options {
    std::optional<int> holdMs;
    std::string lockFile;
    std::string command;
    int slot = 0;
    std::optional<std::int64_t> rowId;
};

// What the holder keeps alive while it waits; the guard goes before the manager.
struct Holder {
    explicit Holder(const std::string& lockFile) : locks(lockFile, LockPolicy{1, 0}) {}
    LockManager locks;
    std::optional<LockManager::WriteGuard> write;
};

const char OwnerTag = 0;
const void* const Owner = &OwnerTag;

std::string TableName(const Options& options) {
    return "T" + std::to_string(options.slot);
}

struct Command {
    std::string_view name;
    bool needsRow;
    void (*take)(Holder&, const Options&);
};

const Command Commands[] = {
    {"open", false,
     [](Holder& h, const Options& o) { h.locks.AcquireOpen(o.slot, TableName(o), Owner, false); }},
    {"exclusive", false,
     [](Holder& h, const Options& o) { h.locks.AcquireOpen(o.slot, TableName(o), Owner, true); }},
    {"table", false,
     [](Holder& h, const Options& o) { h.locks.LockTable(o.slot, TableName(o), Owner); }},
    {"record", true,
     [](Holder& h, const Options& o) { h.locks.LockRecord(o.slot, *o.rowId, Owner); }},
    // A write under way: what a table lock of another process has to wait for.
    {"write", false,
     [](Holder& h, const Options& o) {
         h.write.emplace(h.locks.GuardWrite(o.slot, TableName(o)));
     }},
};

const Command* FindCommand(std::string_view name) {
    for (const Command& command : Commands)
        if (command.name == name) return &command;
    return nullptr;
}

[[noreturn]] void Usage(const std::string& problem) {
    std::cerr << "store_lock_holder: " << problem << "\n"
              << "usage: store_lock_holder [--hold-ms N] <lockfile> <command> <slot> [rowId]\n"
              << "commands:";
    for (const Command& command : Commands)
        std::cerr << ' ' << command.name << (command.needsRow ? " (needs rowId)" : "");
    std::cerr << '\n';
    std::exit(ExitUsage);
}

long long ParseNumber(const std::string& text, const char* what) {
    try {
        std::size_t used = 0;
        const long long value = std::stoll(text, &used);
        if (used == text.size()) return value;
    } catch (const std::exception&) {
    }
    Usage(std::string("bad ") + what + " '" + text + "'");
}

Options Parse(int argc, char** argv) {
    Options options;
    std::vector<std::string> positional;
    for (int i = 1; i < argc; ++i) {
        const std::string arg = argv[i];
        if (arg == "--hold-ms") {
            if (++i == argc) Usage("--hold-ms needs a value");
            options.holdMs = static_cast<int>(ParseNumber(argv[i], "--hold-ms"));
        } else {
            positional.push_back(arg);
        }
    }
    if (positional.size() < 3 || positional.size() > 4) Usage("wrong number of arguments");
    options.lockFile = positional[0];
    options.command = positional[1];
    options.slot = static_cast<int>(ParseNumber(positional[2], "slot"));
    if (positional.size() == 4) options.rowId = ParseNumber(positional[3], "rowId");
    return options;
}

} // namespace

int main(int argc, char** argv) {
    const Options options = Parse(argc, argv);
    const Command* command = FindCommand(options.command);
    if (command == nullptr) Usage("unknown command '" + options.command + "'");
    if (command->needsRow != options.rowId.has_value())
        Usage(command->needsRow ? "this command needs a rowId" : "this command takes no rowId");

    try {
        Holder holder(options.lockFile);
        command->take(holder, options);
        std::cout << "ready" << std::endl;
        if (options.holdMs) {
            std::this_thread::sleep_for(std::chrono::milliseconds(*options.holdMs));
            return 0; // the holder's destructors release the lock
        }
        for (;;)
            pause();
    } catch (const EngineError& e) {
        std::cout << "error " << e.ErrorCode() << ": " << e.what() << std::endl;
        return ExitRefused;
    }
}
