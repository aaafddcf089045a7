#include "desktop/ListBoxBinding.h"

#include "ui/ListBox.h"

#include <QKeyEvent>
#include <QListWidget>

namespace corvane::desktop {

ListBoxBinding::ListBoxBinding(FormWindow& window, ui::ListBox& list)
    : ControlBinding(window, list), list_(list), view_(new QListWidget) {
    view_->setSelectionMode(QAbstractItemView::SingleSelection);
    QObject::connect(view_, &QListWidget::itemPressed, [this](QListWidgetItem* item) {
        UserEvent([this, row = view_->row(item)] {
            if (!ClickInto()) return;
            list_.ClickItem(row);
        });
    });
    QObject::connect(view_, &QListWidget::itemDoubleClicked, [this] {
        UserEvent([this] {
            if (!ClickInto()) return;
            list_.DblClick();
        });
    });
}

QWidget* ListBoxBinding::Widget() const {
    return view_;
}

bool ListBoxBinding::RoutesKey(const QKeyEvent& event) const {
    switch (event.key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
        return true;
    default:
        return ControlBinding::RoutesKey(event);
    }
}

void ListBoxBinding::PullState() {
    const auto& items = list_.Items();
    bool same = view_->count() == static_cast<int>(items.size());
    for (int i = 0; same && i < view_->count(); ++i)
        same = view_->item(i)->text().toStdString() == items[static_cast<std::size_t>(i)];
    if (!same) {
        view_->clear();
        for (const std::string& item : items)
            view_->addItem(QString::fromStdString(item));
    }
    int index = list_.ItemIndex();
    if (view_->currentRow() != index) view_->setCurrentRow(index);
    if (index >= 0) view_->scrollToItem(view_->item(index));
}

} // namespace corvane::desktop
