#pragma once

#include "ui/Dialogs.h"

#include <deque>
#include <optional>
#include <string>
#include <vector>

namespace corvane::ui {

// Message boxes without a screen: each one is recorded, and a question is answered from a queue
// that the test or scenario fills beforehand. A box with a single button asks nothing, so it is
// answered with that button; a question with no answer queued is a ScriptError, so that a test
// cannot pass over a question it did not expect.
class HeadlessDialogs : public Dialogs {
public:
    // The answer to the next question.
    void Answer(MsgButton button);
    // The answer to the next question, which must read exactly text.
    void Answer(std::string text, MsgButton button);

    MsgButton Show(const Message& message) override;

    const std::vector<Message>& Shown() const { return shown_; }
    // The text of the last box shown; empty when none was.
    std::string LastText() const { return shown_.empty() ? std::string() : shown_.back().Text; }
    std::size_t PendingAnswers() const { return answers_.size(); }
    void ClearShown() { shown_.clear(); }

private:
    struct Scripted {
        std::optional<std::string> Text;
        MsgButton Button;
    };
    std::deque<Scripted> answers_;
    std::vector<Message> shown_;
};

} // namespace corvane::ui
