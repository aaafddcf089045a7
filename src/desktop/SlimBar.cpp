#include "desktop/SlimBar.h"

#include "desktop/FormWindow.h"

#include <QBoxLayout>
#include <QComboBox>
#include <QLabel>
#include <QLayout>
#include <QToolBar>

#include <cmath>

namespace corvane::desktop {

namespace {

int Scaled(int pixels, double scale) {
    return static_cast<int>(std::lround(pixels * scale));
}

// The widgets of a row, each with whether something stands ahead of it.
void ArrangeRow(QBoxLayout& row, double scale) {
    for (int i = 0; i < row.count(); ++i) {
        QWidget* widget = row.itemAt(i)->widget();
        if (!widget) continue;
        if (auto* combo = qobject_cast<QComboBox*>(widget)) {
            // A choice keeps its width whatever the items: the bar's width comes from its
            // buttons, not from the longest system name.
            combo->setFixedWidth(Scaled(SlimBar::ComboWidth, scale));
            combo->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        } else if (auto* label = qobject_cast<QLabel*>(widget); label && i > 0) {
            // A label after the row's controls stands apart from them; the gap goes with it
            // when it is hidden.
            label->setContentsMargins(Scaled(SlimBar::LinkGap, scale) - row.spacing(), 0, 4, 0);
            label->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
        }
    }
}

// A label on a line of its own is the bar's panel: it never widens the bar, and a long text is
// cut at its edge.
void ArrangePanel(QLabel& panel, double scale) {
    panel.setFixedHeight(Scaled(SlimBar::PanelHeight, scale));
    panel.setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    panel.setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
    panel.setContentsMargins(4, 0, 4, 0);
}

void Arrange(QLayout& layout, bool inRow, double scale) {
    auto* box = qobject_cast<QBoxLayout*>(&layout);
    bool row = box && (box->direction() == QBoxLayout::LeftToRight ||
                       box->direction() == QBoxLayout::RightToLeft);
    if (row) ArrangeRow(*box, scale);
    for (int i = 0; i < layout.count(); ++i) {
        QLayoutItem* item = layout.itemAt(i);
        if (QLayout* inner = item->layout())
            Arrange(*inner, row || inRow, scale);
        else if (auto* label = qobject_cast<QLabel*>(item->widget()); label && !row && !inRow)
            ArrangePanel(*label, scale);
    }
}

} // namespace

SlimBar::SlimBar(FormWindow& window, QWidget& body, double scale) : window_(window), body_(body) {
    window_.setWindowFlag(Qt::WindowMaximizeButtonHint, false);
    if (QLayout* content = body_.layout()) {
        content->setContentsMargins(2, 2, 2, 2);
        content->setSpacing(2);
        Arrange(*content, false, scale);
    }
}

void SlimBar::Fit() {
    // Buttons and the panel shown or hidden since the last fit change what the layouts ask for;
    // the layouts keep the sizes they asked their widgets last, until told otherwise.
    for (QWidget* widget : body_.findChildren<QWidget*>())
        widget->updateGeometry();
    body_.updateGeometry();
    for (QLayout* layout : body_.findChildren<QLayout*>())
        layout->invalidate();
    if (body_.layout()) body_.layout()->invalidate();
    if (window_.layout()) window_.layout()->invalidate();
    QSize size = window_.sizeHint();
    if (window_.minimumSize() != size || window_.maximumSize() != size) window_.setFixedSize(size);
}

} // namespace corvane::desktop
