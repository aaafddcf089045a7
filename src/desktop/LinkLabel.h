#pragma once

#include <QLabel>

#include <functional>

namespace corvane::desktop {

// A label that may act as a link: in the link colour, with the pointing hand over it and an
// underline while the mouse is on it, and a left click on its text runs Clicked. A plain label
// looks and behaves as any QLabel.
class LinkLabel : public QLabel {
    Q_OBJECT

public:
    LinkLabel();

    bool IsLink() const { return link_; }
    void SetLink(bool link);
    std::function<void()> Clicked;

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;

private:
    void Underline(bool on);

    bool link_ = false;
    bool pressed_ = false;
};

} // namespace corvane::desktop
