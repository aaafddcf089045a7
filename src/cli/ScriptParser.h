#pragma once

#include "cli/ScriptLine.h"

#include <string>
#include <string_view>
#include <vector>

namespace corvane::cli {

// The words of one line: blanks separate them; a word in double quotes keeps its blanks and takes
// the escapes \" \\ \n and \t. Throws ScriptSyntaxError for an unterminated or stray quote.
std::vector<std::string> SplitScriptWords(std::string_view text, int lineNumber);

// The whole script, checked before anything runs: every command known, with the right number
// of words, every key and button name valid, every "modal" closed by its "end". Blank lines and
// lines whose first character that is not a blank is '#' are skipped.
std::vector<ScriptLine> ParseScript(std::string_view text);

} // namespace corvane::cli
