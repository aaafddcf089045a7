#pragma once

#include <initializer_list>
#include <optional>
#include <string>
#include <vector>

namespace corvane::ui {

enum class MsgType { Plain, Information, Warning, Error, Confirmation };

// In the order a message box lays them out.
enum MsgButton { mbYes, mbNo, mbOK, mbCancel, mbAbort, mbRetry, mbIgnore, mbAll };

class MsgButtons {
public:
    MsgButtons(std::initializer_list<MsgButton> buttons) {
        for (MsgButton b : buttons)
            bits_ |= 1u << b;
    }
    bool Has(MsgButton b) const { return (bits_ >> b) & 1u; }
    std::vector<MsgButton> List() const;
    bool operator==(const MsgButtons&) const = default;

private:
    unsigned bits_ = 0;
};

// "Yes", "OK", ...: the caption of a button, also the name scripts use for it.
std::string ButtonCaption(MsgButton button);

// One message box as the program asks for it.
struct Message {
    std::string Title; // the application's title
    std::string Text;
    MsgType Type = MsgType::Plain;
    MsgButtons Buttons{mbOK};
    MsgButton DefaultButton = mbOK;
};

// The one way the program puts a message box in front of the user. The desktop shows a dialog;
// tests and scenarios answer from a script.
class Dialogs {
public:
    virtual ~Dialogs() = default;
    // Returns the button the user pressed.
    virtual MsgButton Show(const Message& message) = 0;
};

} // namespace corvane::ui
