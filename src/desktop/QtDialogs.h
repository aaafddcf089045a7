#pragma once

#include "ui/Dialogs.h"

#include <functional>

class QMessageBox;

namespace corvane::desktop {

// Message boxes as Qt dialogs, modal over the active window.
class QtDialogs : public ui::Dialogs {
public:
    // Sees each box just before it runs; tests answer it from here (a queued click).
    std::function<void(QMessageBox&)> BeforeShow;

    ui::MsgButton Show(const ui::Message& message) override;
};

} // namespace corvane::desktop
