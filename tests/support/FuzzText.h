#pragma once

#include <cstdint>
#include <cstdlib>
#include <random>
#include <string>
#include <vector>

namespace corvane::testing {

// How many inputs a fuzz test tries: CORVANE_FUZZ_INPUTS, or the given CI-sized default.
inline int FuzzInputs(int ciDefault) {
    const char* text = std::getenv("CORVANE_FUZZ_INPUTS");
    const int n = text ? std::atoi(text) : 0;
    return n > 0 ? n : ciDefault;
}

// Seeded random text in the shape of a small language: mostly its own words and symbols, with
// numbers, quotes left open, stray bytes, and now and then very deep nesting or a very long
// chain of operators. The same seed always gives the same inputs, so a failure can be repeated.
class FuzzText {
public:
    FuzzText(std::uint32_t seed, std::vector<std::string> words)
        : engine_(seed), words_(std::move(words)) {}

    std::string Next() {
        switch (Below(40)) {
        case 0:
            return Repeat("(", 200 + Below(20000)) + Pick() + Repeat(")", Below(20000));
        case 1:
            return Pick() + Repeat(" + 1", 100 + Below(10000));
        case 2:
            return Repeat("not ", 100 + Below(5000)) + Pick();
        case 3:
            return Repeat("-", 100 + Below(5000)) + "1";
        default:
            break;
        }
        std::string text;
        const int tokens = Below(30);
        for (int i = 0; i < tokens; ++i) {
            if (!text.empty() && Below(3)) text += ' ';
            text += Token();
        }
        return text;
    }

private:
    int Below(int n) { return static_cast<int>(engine_() % static_cast<std::uint32_t>(n)); }
    const std::string& Pick() {
        return words_[static_cast<std::size_t>(Below(static_cast<int>(words_.size())))];
    }
    static std::string Repeat(const std::string& s, int times) {
        std::string out;
        out.reserve(s.size() * static_cast<std::size_t>(times));
        for (int i = 0; i < times; ++i)
            out += s;
        return out;
    }

    std::string Token() {
        static const char* const symbols[] = {"(", ")", "'",  "\"", "[",  "]", ",", "+", "-", "*",
                                              "/", "=", "<>", "<",  ">=", ":", ";", ".", "%", "||"};
        switch (Below(10)) {
        case 0:
            return symbols[Below(static_cast<int>(std::size(symbols)))];
        case 1: {
            static const char* const numbers[] = {"0",
                                                  "1",
                                                  "12.5",
                                                  "-3",
                                                  "99999999999999999999",
                                                  "1e400",
                                                  "0.0001",
                                                  "922337203685477.5807",
                                                  "'2017-02-30'",
                                                  "''"};
            return numbers[Below(static_cast<int>(std::size(numbers)))];
        }
        case 2: {
            std::string bytes;
            for (int i = Below(4) + 1; i > 0; --i)
                bytes += static_cast<char>(1 + Below(255));
            return bytes;
        }
        default:
            return Pick();
        }
    }

    std::mt19937 engine_;
    std::vector<std::string> words_;
};

} // namespace corvane::testing
