#pragma once

#include <QIcon>
#include <QString>

namespace corvane::desktop {

// The icon of a tool button that has no picture of its own: the first letters of its caption's
// words on a tile, so that buttons stay apart at icon size.
QIcon ToolIcon(const QString& caption, int size);

} // namespace corvane::desktop
