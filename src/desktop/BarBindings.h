#pragma once

#include "desktop/ControlBinding.h"

#include <memory>
#include <utility>
#include <vector>

class QAction;
class QLabel;
class QProgressBar;
class QStatusBar;
class QToolBar;

namespace corvane::ui {
class ProgressBar;
class StatusBar;
class ToolBar;
class ToolButton;
} // namespace corvane::ui

namespace corvane::desktop {

class ToolBarBinding : public ControlBinding {
public:
    ToolBarBinding(FormWindow& window, ui::ToolBar& bar);
    ~ToolBarBinding() override;
    QWidget* Widget() const override;

protected:
    void PullState() override;

private:
    void ShowCaptions(bool captions);

    ui::ToolBar& bar_;
    QToolBar* tools_;
    bool captions_ = true;
    class HintFilter;
    std::unique_ptr<HintFilter> hints_;
    std::vector<std::pair<ui::ToolButton*, QAction*>> actions_;
};

class StatusBarBinding : public ControlBinding {
public:
    StatusBarBinding(FormWindow& window, ui::StatusBar& bar);
    QWidget* Widget() const override;

protected:
    void PullState() override;

private:
    ui::StatusBar& bar_;
    QStatusBar* status_;
    std::vector<QLabel*> panels_;
};

class ProgressBinding : public ControlBinding {
public:
    ProgressBinding(FormWindow& window, ui::ProgressBar& progress);
    QWidget* Widget() const override;

protected:
    void PullState() override;

private:
    ui::ProgressBar& progress_;
    QProgressBar* bar_;
};

} // namespace corvane::desktop
