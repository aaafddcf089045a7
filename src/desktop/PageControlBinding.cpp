#include "desktop/PageControlBinding.h"

#include "desktop/FormWindow.h"
#include "desktop/LayoutBuilder.h"
#include "ui/PageControl.h"

#include <QKeyEvent>
#include <QLayout>
#include <QTabBar>
#include <QTabWidget>

#include <algorithm>

namespace corvane::desktop {

PageControlBinding::PageControlBinding(FormWindow& window, ui::PageControl& pages,
                                       LayoutBuilder& builder)
    : ControlBinding(window, pages), pages_(pages), tabs_(new QTabWidget) {
    // Every tab reads whole: the window is made wide enough for the row of tabs rather than
    // cutting their captions short.
    tabs_->setElideMode(Qt::ElideNone);
    tabs_->setUsesScrollButtons(false);
    for (ui::Page* page : pages.Pages()) {
        auto* sheet = new QWidget;
        sheet->setObjectName(QString::fromStdString(page->Name()));
        if (page->Layout()) {
            QLayout* layout = builder.Build(*page->Layout());
            layout->setContentsMargins(8, 8, 8, 8);
            sheet->setLayout(layout);
        }
        tabs_->addTab(sheet, QString::fromStdString(page->Caption));
    }
    QObject::connect(tabs_, &QTabWidget::currentChanged, [this](int index) {
        UserEvent([this, index] {
            const auto& list = pages_.Pages();
            if (index >= 0 && index < static_cast<int>(list.size()))
                pages_.SetActivePage(*list[static_cast<std::size_t>(index)]);
        });
    });
}

QWidget* PageControlBinding::Widget() const {
    return tabs_;
}

bool PageControlBinding::RoutesKey(const QKeyEvent& event) const {
    // Ctrl+Tab goes through the form, which knows which pages may come forward.
    if (event.key() == Qt::Key_Tab && event.modifiers().testFlag(Qt::ControlModifier)) return true;
    return ControlBinding::RoutesKey(event);
}

void PageControlBinding::PullState() {
    const auto& list = pages_.Pages();
    for (std::size_t i = 0; i < list.size(); ++i) {
        int at = static_cast<int>(i);
        tabs_->setTabVisible(at, list[i]->TabVisible);
        tabs_->setTabText(at, QString::fromStdString(list[i]->Caption));
    }
    auto active = std::find(list.begin(), list.end(), pages_.ActivePage());
    if (active != list.end()) tabs_->setCurrentIndex(static_cast<int>(active - list.begin()));
}

} // namespace corvane::desktop
