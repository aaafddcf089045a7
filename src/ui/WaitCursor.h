#pragma once

namespace corvane::ui {

class Application;

// The hourglass for the life of the object. Uses nest: the cursor goes back to normal when the
// outermost one ends, on the normal path and on an exception alike.
//
//   ui::WaitCursor wait(App());
class WaitCursor {
public:
    explicit WaitCursor(Application& app);
    ~WaitCursor();
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    Application& app_;
};

} // namespace corvane::ui
