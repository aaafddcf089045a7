#include "cli/ScriptParser.h"

#include "cli/ScriptWords.h"
#include "ui/Keys.h"
#include "ui/ScriptError.h"

#include <algorithm>
#include <map>

namespace corvane::cli {

namespace {

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r';
}

// How many words may follow a command (or, for "expect", its kind); -1 for no limit.
struct Arity {
    int Min;
    int Max;
};

const std::map<std::string, Arity, std::less<>>& Commands() {
    static const std::map<std::string, Arity, std::less<>> commands{
        {"company", {1, 3}},  {"start", {0, 1}},   {"open", {1, 1}},     {"menu", {1, 1}},
        {"form", {1, 1}},     {"set", {2, 2}},     {"cell", {3, 3}},     {"type", {1, 1}},
        {"key", {1, 2}},      {"click", {1, 1}},   {"dblclick", {1, 1}}, {"focus", {1, 1}},
        {"select", {2, 2}},   {"check", {2, 2}},   {"choose", {2, 2}},   {"close", {0, 0}},
        {"answer", {1, 2}},   {"modal", {1, 1}},   {"end", {0, 0}},      {"expect", {1, -1}},
        {"settings", {4, 4}}, {"restart", {0, 0}}, {"wheel", {2, 2}},    {"locale", {1, 1}},
        {"setup", {2, 2}},
    };
    return commands;
}

const std::map<std::string, Arity, std::less<>>& Expectations() {
    static const std::map<std::string, Arity, std::less<>> kinds{
        {"message", {1, 1}},   {"caption", {1, 1}}, {"text", {2, 2}},    {"enabled", {1, 1}},
        {"disabled", {1, 1}},  {"visible", {1, 1}}, {"hidden", {1, 1}},  {"checked", {1, 1}},
        {"unchecked", {1, 1}}, {"focus", {1, 1}},   {"open", {1, 1}},    {"row", {2, -1}},
        {"grid", {1, -1}},     {"sql", {1, -1}},    {"preview", {1, 1}}, {"page", {2, 2}},
        {"printed", {1, 1}},   {"mail", {1, 3}},    {"closed", {1, 1}}, {"setting", {3, 3}},
    };
    return kinds;
}

void CheckArity(const std::string& what, const Arity& arity, std::size_t count, int line) {
    auto n = static_cast<int>(count);
    if (n >= arity.Min && (arity.Max < 0 || n <= arity.Max)) return;
    std::string wanted = arity.Max < 0 ? "at least " + std::to_string(arity.Min)
                         : arity.Min == arity.Max
                             ? std::to_string(arity.Min)
                             : std::to_string(arity.Min) + " to " + std::to_string(arity.Max);
    throw ScriptSyntaxError(line, "'" + what + "' takes " + wanted + " argument" +
                                      (wanted == "1" ? "" : "s") + ", found " + std::to_string(n));
}

void CheckExpectation(const ScriptLine& l) {
    const std::string& kind = l.Args[0];
    auto it = Expectations().find(kind);
    if (it == Expectations().end())
        throw ScriptSyntaxError(l.Number, "Unknown expectation 'expect " + kind + "'");
    CheckArity("expect " + kind, it->second, l.Args.size() - 1, l.Number);
    if ((kind == "preview" && !ParseRowIndex(l.Args[1])) ||
        (kind == "page" && ParsePrintCount(l.Args[1]) == 0))
        throw ScriptSyntaxError(l.Number, "'expect " + kind + "' wants " +
                                              (kind == "page" ? "a page number" : "a page count") +
                                              ", found '" + l.Args[1] + "'");
    if (kind == "printed" && !ParsePageList(l.Args[1]))
        throw ScriptSyntaxError(l.Number, "'expect printed' wants page numbers like \"1,2,1\", "
                                          "found '" +
                                              l.Args[1] + "'");
    if (kind == "row")
        for (std::size_t i = 2; i < l.Args.size(); ++i)
            if (l.Args[i].find('=') == std::string::npos)
                throw ScriptSyntaxError(l.Number, "'expect row' wants COLUMN=VALUE, found '" +
                                                      l.Args[i] + "'");
}

// What the runner would otherwise find out half way through the script.
void CheckWords(const ScriptLine& l) {
    const auto& a = l.Args;
    if (l.Command == "company") {
        if (a[0] == "open" && a.size() != 2)
            throw ScriptSyntaxError(l.Number, "'company open' needs the company's folder");
        if (a[0] == "new" && a.size() > 2)
            throw ScriptSyntaxError(l.Number, "'company new' takes at most a folder");
        if (a[0] == "old" && a.size() != 3)
            throw ScriptSyntaxError(l.Number, "'company old' needs a folder and a version mark");
        if (a[0] == "sample" && a.size() != 1)
            throw ScriptSyntaxError(l.Number, "'company sample' takes nothing more");
        if (a[0] != "new" && a[0] != "open" && a[0] != "old" && a[0] != "sample")
            throw ScriptSyntaxError(l.Number, "'company' is followed by 'new', 'open', 'old' or "
                                              "'sample', "
                                              "not '" +
                                                  a[0] + "'");
    } else if (l.Command == "key") {
        try {
            ui::ParseShortCut(a.back());
        } catch (const ui::ScriptError& e) {
            throw ScriptSyntaxError(l.Number, e.what());
        }
    } else if (l.Command == "select") {
        if (!ParseRowIndex(a[1]))
            throw ScriptSyntaxError(l.Number, "'" + a[1] + "' is not a row number");
    } else if (l.Command == "check") {
        if (a[1] != "on" && a[1] != "off")
            throw ScriptSyntaxError(l.Number,
                                    "'check' is followed by on or off, not '" + a[1] + "'");
    } else if (l.Command == "answer" && a[0] == "print") {
        if (a.size() != 2 || (a[1] != "cancel" && ParsePrintCount(a[1]) == 0))
            throw ScriptSyntaxError(l.Number, "'answer print' is followed by a number of copies "
                                              "or cancel");
    } else if (l.Command == "answer" && a[0] == "save") {
        if (a.size() != 2 || a[1].empty())
            throw ScriptSyntaxError(l.Number, "'answer save' is followed by a file or cancel");
    } else if (l.Command == "answer") {
        if (!ParseButtonName(a[0]))
            throw ScriptSyntaxError(l.Number, "Unknown message box button '" + a[0] + "'");
    } else if (l.Command == "expect") {
        CheckExpectation(l);
    } else if (l.Command == "settings") {
        if (a[0] != "write")
            throw ScriptSyntaxError(l.Number,
                                    "'settings' is followed by write, not '" + a[0] + "'");
    } else if (l.Command == "wheel") {
        if (a[1] != "up" && a[1] != "down")
            throw ScriptSyntaxError(l.Number,
                                    "'wheel' is followed by up or down, not '" + a[1] + "'");
    } else if (l.Command == "setup") {
        if (a[0] != "sql")
            throw ScriptSyntaxError(l.Number, "'setup' is followed by sql, not '" + a[0] + "'");
    }
}

} // namespace

std::vector<std::string> SplitScriptWords(std::string_view text, int lineNumber) {
    std::vector<std::string> words;
    std::size_t i = 0;
    while (true) {
        while (i < text.size() && IsBlank(text[i]))
            ++i;
        if (i == text.size()) return words;
        std::string word;
        if (text[i] == '"') {
            ++i;
            bool closed = false;
            while (i < text.size()) {
                char c = text[i++];
                if (c == '"') {
                    closed = true;
                    break;
                }
                if (c == '\\') {
                    if (i == text.size()) break;
                    char e = text[i++];
                    switch (e) {
                    case 'n':
                        word += '\n';
                        break;
                    case 't':
                        word += '\t';
                        break;
                    case '"':
                    case '\\':
                        word += e;
                        break;
                    default:
                        throw ScriptSyntaxError(lineNumber, std::string("Unknown escape '\\") + e +
                                                                "' in a quoted word");
                    }
                    continue;
                }
                word += c;
            }
            if (!closed) throw ScriptSyntaxError(lineNumber, "Unterminated quote");
            if (i < text.size() && !IsBlank(text[i]))
                throw ScriptSyntaxError(lineNumber, "A closing quote must end the word");
        } else {
            while (i < text.size() && !IsBlank(text[i])) {
                if (text[i] == '"')
                    throw ScriptSyntaxError(lineNumber,
                                            "A quote inside a word; quote the whole word");
                word += text[i++];
            }
        }
        words.push_back(std::move(word));
    }
}

std::vector<ScriptLine> ParseScript(std::string_view text) {
    std::vector<ScriptLine> top;
    // The open "modal" blocks, innermost last; lines go into the innermost.
    std::vector<ScriptLine> open;
    int number = 0;
    std::size_t pos = 0;
    while (pos <= text.size()) {
        std::size_t eol = text.find('\n', pos);
        if (eol == std::string_view::npos) eol = text.size();
        std::string_view raw = text.substr(pos, eol - pos);
        pos = eol + 1;
        ++number;
        auto first = std::find_if_not(raw.begin(), raw.end(), IsBlank);
        if (first == raw.end() || *first == '#') continue;

        auto words = SplitScriptWords(raw, number);
        ScriptLine line;
        line.Number = number;
        line.Command = words.front();
        line.Args.assign(words.begin() + 1, words.end());
        auto known = Commands().find(line.Command);
        if (known == Commands().end())
            throw ScriptSyntaxError(number, "Unknown command '" + line.Command + "'");
        CheckArity(line.Command, known->second, line.Args.size(), number);
        CheckWords(line);

        if (line.Command == "end") {
            if (open.empty()) throw ScriptSyntaxError(number, "'end' without 'modal'");
            ScriptLine block = std::move(open.back());
            open.pop_back();
            (open.empty() ? top : open.back().Body).push_back(std::move(block));
        } else if (line.Command == "modal") {
            open.push_back(std::move(line));
        } else {
            (open.empty() ? top : open.back().Body).push_back(std::move(line));
        }
    }
    if (!open.empty())
        throw ScriptSyntaxError(open.back().Number,
                                "'modal " + open.back().Args[0] + "' has no 'end'");
    return top;
}

} // namespace corvane::cli
