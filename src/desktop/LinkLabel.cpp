#include "desktop/LinkLabel.h"

#include <QMouseEvent>
#include <QPalette>

namespace corvane::desktop {

LinkLabel::LinkLabel() = default;

void LinkLabel::SetLink(bool link) {
    if (link == link_) return;
    link_ = link;
    if (link) {
        setCursor(Qt::PointingHandCursor);
        QPalette colours = palette();
        colours.setColor(QPalette::WindowText, colours.color(QPalette::Link));
        setPalette(colours);
    } else {
        unsetCursor();
        setPalette(QPalette());
        Underline(false);
    }
}

void LinkLabel::Underline(bool on) {
    QFont shown = font();
    if (shown.underline() == on) return;
    shown.setUnderline(on);
    setFont(shown);
}

void LinkLabel::mousePressEvent(QMouseEvent* event) {
    pressed_ = link_ && event->button() == Qt::LeftButton;
    if (pressed_) return event->accept();
    QLabel::mousePressEvent(event);
}

void LinkLabel::mouseReleaseEvent(QMouseEvent* event) {
    // A press that is dragged off the text and let go there is no click, as with a button.
    bool click = pressed_ && event->button() == Qt::LeftButton &&
                 contentsRect().contains(event->position().toPoint());
    pressed_ = false;
    if (!click) return QLabel::mouseReleaseEvent(event);
    event->accept();
    if (Clicked) Clicked();
}

void LinkLabel::enterEvent(QEnterEvent* event) {
    if (link_) Underline(true);
    QLabel::enterEvent(event);
}

void LinkLabel::leaveEvent(QEvent* event) {
    Underline(false);
    QLabel::leaveEvent(event);
}

} // namespace corvane::desktop
