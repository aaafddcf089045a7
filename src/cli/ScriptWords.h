#pragma once

#include "ui/Dialogs.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::cli {

// "Yes", "ok", "Cancel": a message box button by its caption, in any case.
std::optional<ui::MsgButton> ParseButtonName(std::string_view name);
// A row number counted from 0; nothing for anything else.
std::optional<std::int64_t> ParseRowIndex(std::string_view text);
// A count from 1 (copies, a page number); 0 for anything else.
int ParsePrintCount(std::string_view text);
// "1,2,1,2": page numbers in the order they printed; "" for none. Nothing when malformed.
std::optional<std::vector<int>> ParsePageList(std::string_view text);
// The page numbers as ParsePageList reads them.
std::string PageListText(const std::vector<int>& pages);
// Equal ignoring the case of ASCII letters.
bool SameWord(std::string_view a, std::string_view b);

} // namespace corvane::cli
