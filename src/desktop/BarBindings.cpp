#include "desktop/BarBindings.h"

#include "desktop/FormWindow.h"
#include "ui/Caption.h"
#include "ui/ProgressBar.h"
#include "ui/StatusBar.h"
#include "ui/ToolBar.h"

#include <QAction>
#include <QLabel>
#include <QProgressBar>
#include <QStatusBar>
#include <QToolBar>

namespace corvane::desktop {

// ----- tool bar

ToolBarBinding::ToolBarBinding(FormWindow& window, ui::ToolBar& bar)
    : ControlBinding(window, bar), bar_(bar), tools_(new QToolBar) {
    tools_->setMovable(false);
    tools_->setFocusPolicy(Qt::NoFocus);
    tools_->setToolButtonStyle(bar.ShowCaptions ? Qt::ToolButtonTextOnly : Qt::ToolButtonIconOnly);
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
        actions_.emplace_back(button, action);
    }
}

QWidget* ToolBarBinding::Widget() const {
    return tools_;
}

void ToolBarBinding::PullState() {
    for (auto& [button, action] : actions_) {
        action->setVisible(button->Visible());
        action->setEnabled(button->Enabled());
        if (!action->isSeparator())
            action->setText(QString::fromStdString(ui::PlainCaption(button->Caption())));
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
