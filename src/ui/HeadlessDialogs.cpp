#include "ui/HeadlessDialogs.h"

#include "ui/ScriptError.h"

namespace corvane::ui {

void HeadlessDialogs::Answer(MsgButton button) {
    answers_.push_back({std::nullopt, button});
}

void HeadlessDialogs::Answer(std::string text, MsgButton button) {
    answers_.push_back({std::move(text), button});
}

MsgButton HeadlessDialogs::Show(const Message& message) {
    shown_.push_back(message);
    auto offered = message.Buttons.List();
    if (offered.size() == 1) return offered.front();
    if (answers_.empty()) throw ScriptError("No answer scripted for message: " + message.Text);
    Scripted answer = answers_.front();
    answers_.pop_front();
    if (answer.Text && *answer.Text != message.Text)
        throw ScriptError("Expected the message \"" + *answer.Text + "\" but got: " + message.Text);
    if (!message.Buttons.Has(answer.Button))
        throw ScriptError("The answer " + ButtonCaption(answer.Button) +
                          " is not offered by message: " + message.Text);
    return answer.Button;
}

} // namespace corvane::ui
