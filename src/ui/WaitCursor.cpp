#include "ui/WaitCursor.h"

#include "ui/Application.h"

namespace corvane::ui {

WaitCursor::WaitCursor(Application& app) : app_(app) {
    app_.BeginWait();
}

WaitCursor::~WaitCursor() {
    app_.EndWait();
}

} // namespace corvane::ui
