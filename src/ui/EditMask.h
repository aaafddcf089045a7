#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::ui {

// The input mask of an edit, such as "!99/99/0000" or ">LL 000". Characters of the mask:
//   0 a digit, required      9 a digit, optional
//   L a letter, required     l a letter, optional
//   A a letter or digit, req. a a letter or digit, optional
//   C any character, req.    c any character, optional
//   > upper-cases what follows, < lower-cases it, <> stops either
//   \ takes the next mask character literally; anything else is a literal the edit types itself.
// A ';' ends the mask (what follows, as "1;_", is accepted and ignored). "!" is ignored. The text
// keeps the literals.
class EditMask {
public:
    EditMask() = default;
    explicit EditMask(std::string_view mask);

    bool Empty() const { return slots_.empty(); }
    // The text after typing ch at the end of text; nothing when the mask does not take it.
    std::optional<std::string> Type(const std::string& text, char ch) const;
    // Text typed or pasted as a whole, character by character; nothing when one is refused.
    std::optional<std::string> Apply(std::string_view text) const;
    // Every required position is filled. An empty text counts as complete: no value at all.
    bool Complete(const std::string& text) const;

private:
    enum class Accept { Literal, Digit, Letter, AlphaNum, Any };
    enum class Case { Keep, Upper, Lower };
    struct Slot {
        Accept What;
        bool Required;
        Case Convert;
        char Literal;
    };
    static bool Fits(const Slot& slot, char ch);

    std::vector<Slot> slots_;
};

} // namespace corvane::ui
