#pragma once

#include "ui/Memo.h"

#include <functional>
#include <string>
#include <string_view>

namespace corvane::ui {

// Text with formatting, kept as the host that draws it writes it: a window host keeps its rich
// text control's own markup, a host without one (headless) keeps plain text. Formatting is asked
// of the host; where there is none it changes nothing, since plain text has none to change.
class RichEdit : public Memo {
public:
    RichEdit(Form& form, std::string name) : Memo(form, std::move(name)) {}

    enum class Format { Bold, Underline, Font };
    bool WordWrap = true;

    // Formats the selection (Font asks the user for one first).
    void ApplyFormat(Format format) {
        if (Formatter) Formatter(format);
    }
    // Selects the next place the text occurs after the caret, letter case aside, starting again
    // at the top once; false when it occurs nowhere.
    bool FindText(std::string_view text);

    // Set by a host that draws formatted text.
    std::function<void(Format)> Formatter;
    std::function<bool(std::string_view)> Finder;

    const char* TypeName() const override { return "RichEdit"; }
};

// A rich edit on a field of a cursor.
class DBRichEdit : public RichEdit {
public:
    DBRichEdit(Form& form, std::string name, store::DataSet& dataSet, std::string fieldName)
        : RichEdit(form, std::move(name)) {
        Bind(dataSet, std::move(fieldName));
    }
    const char* TypeName() const override { return "DBRichEdit"; }
};

} // namespace corvane::ui
