#pragma once

class QApplication;

namespace corvane::desktop {

// One look for every window: the Fusion style and a standard font, whatever desktop it runs on.
void ApplyLook(QApplication& app);

} // namespace corvane::desktop
