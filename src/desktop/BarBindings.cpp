#include "desktop/BarBindings.h"

#include "desktop/FormWindow.h"
#include "desktop/ToolIcon.h"
#include "ui/Caption.h"
#include "ui/ProgressBar.h"
#include "ui/StatusBar.h"
#include "ui/ToolBar.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>

namespace corvane::desktop {

// ----- tool bar

// A button showing its caption needs no hint; an icon-sized one names its command in one (its
// action's text, which Qt gives as the hint by default).
class ToolBarBinding::HintFilter : public QObject {
public:
    explicit HintFilter(const bool& captions) : captions_(captions) {}

protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ToolTip && captions_) return true;
        return QObject::eventFilter(watched, event);
    }

private:
    const bool& captions_;
};

ToolBarBinding::ToolBarBinding(FormWindow& window, ui::ToolBar& bar)
    : ControlBinding(window, bar), bar_(bar), tools_(new QToolBar),
      hints_(std::make_unique<HintFilter>(captions_)) {
    tools_->setMovable(false);
    tools_->setFocusPolicy(Qt::NoFocus);
    ShowCaptions(bar.ShowCaptions);
    for (ui::ToolButton* button : bar.Buttons()) {
        QAction* action = nullptr;
        if (!button->Item() && button->Caption().empty()) {
            action = tools_->addSeparator();
        } else {
            action = tools_->addAction(QString::fromStdString(ui::PlainCaption(button->Caption())));
            QObject::connect(action, &QAction::triggered,
                             [this, button] { UserEvent([button] { button->Click(); }); });
        }
        action->setObjectName(QString::fromStdString(button->Name()));
        if (QWidget* shown = tools_->widgetForAction(action))
            shown->installEventFilter(hints_.get());
        actions_.emplace_back(button, action);
    }
}

ToolBarBinding::~ToolBarBinding() {
    // The bar's buttons may outlive the binding for a moment; they must not reach the filter.
    for (auto& [button, action] : actions_)
        if (QWidget* shown = tools_->widgetForAction(action))
            shown->removeEventFilter(hints_.get());
}

QWidget* ToolBarBinding::Widget() const {
    return tools_;
}

void ToolBarBinding::ShowCaptions(bool captions) {
    captions_ = captions;
    const auto style = captions ? Qt::ToolButtonTextOnly : Qt::ToolButtonIconOnly;
    tools_->setToolButtonStyle(style);
    // The bar tells its buttons by a signal, which is blocked while the state is shown.
    for (auto& [button, action] : actions_)
        if (auto* shown = qobject_cast<QToolButton*>(tools_->widgetForAction(action)))
            shown->setToolButtonStyle(style);
}

void ToolBarBinding::PullState() {
    if (bar_.ShowCaptions != captions_) ShowCaptions(bar_.ShowCaptions);
    const int iconSize = tools_->iconSize().height();
    for (auto& [button, action] : actions_) {
        if (action->isVisible() != button->Visible()) action->setVisible(button->Visible());
        if (action->isEnabled() != button->Enabled()) action->setEnabled(button->Enabled());
        if (action->isSeparator()) continue;
        QString caption = QString::fromStdString(ui::PlainCaption(button->Caption()));
        if (action->text() != caption) {
            action->setText(caption);
            action->setIcon({});
        }
        if (!captions_ && action->icon().isNull()) action->setIcon(ToolIcon(caption, iconSize));
    }
}

// ----- status bar

StatusBarBinding::StatusBarBinding(FormWindow& window, ui::StatusBar& bar)
    : ControlBinding(window, bar), bar_(bar), status_(new QStatusBar) {
    status_->setSizeGripEnabled(true);
}

QWidget* StatusBarBinding::Widget() const {
    return status_;
}

void StatusBarBinding::PullState() {
    std::size_t wanted = bar_.SimplePanel ? 1 : bar_.Panels.size();
    while (panels_.size() > wanted) {
        delete panels_.back();
        panels_.pop_back();
    }
    while (panels_.size() < wanted) {
        auto* label = new QLabel;
        label->setContentsMargins(4, 0, 4, 0);
        panels_.push_back(label);
        status_->addWidget(label, 1);
    }
    for (std::size_t i = 0; i < wanted; ++i) {
        const bool last = i + 1 == wanted;
        QString text =
            QString::fromStdString(bar_.SimplePanel ? bar_.SimpleText : bar_.Panels[i].Text);
        panels_[i]->setText(text);
        if (!bar_.SimplePanel && !last) panels_[i]->setFixedWidth(bar_.Panels[i].Width);
    }
}

// ----- progress bar

ProgressBinding::ProgressBinding(FormWindow& window, ui::ProgressBar& progress)
    : ControlBinding(window, progress), progress_(progress), bar_(new QProgressBar) {}

QWidget* ProgressBinding::Widget() const {
    return bar_;
}

void ProgressBinding::PullState() {
    bar_->setRange(progress_.Min, progress_.Max);
    bar_->setValue(progress_.Position);
}

} // namespace corvane::desktop
