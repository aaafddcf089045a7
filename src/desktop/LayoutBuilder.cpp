#include "desktop/LayoutBuilder.h"

#include "desktop/FormWindow.h"
#include "ui/Caption.h"
#include "ui/Form.h"
#include "ui/Grid.h"
#include "ui/Label.h"
#include "ui/Layout.h"
#include "ui/Memo.h"
#include "ui/PageControl.h"
#include "ui/RadioGroup.h"
#include "ui/StatusBar.h"
#include "ui/ToolBar.h"

#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

#include <vector>

namespace corvane::desktop {

namespace {

constexpr int Margin = 10;
constexpr int Spacing = 6;

using Kind = ui::LayoutItem::Kind;

// Lists, memos and pages take the room a window grows by.
bool Expands(const ui::LayoutItem& item) {
    if (item.ItemKind() == Kind::Control) {
        ui::Control* c = item.Widget();
        return dynamic_cast<ui::Grid*>(c) || dynamic_cast<ui::Memo*>(c) ||
               dynamic_cast<ui::PageControl*>(c);
    }
    if (item.ItemKind() == Kind::FormRow || item.ItemKind() == Kind::Stretch) return false;
    for (const auto& child : item.Items())
        if (Expands(child)) return true;
    return false;
}

} // namespace

QLayout* LayoutBuilder::BuildForm(ui::Form& form) {
    if (form.Layout()) {
        QLayout* layout = Build(*form.Layout());
        layout->setContentsMargins(Margin, Margin, Margin, Margin);
        return layout;
    }
    auto* column = new QVBoxLayout;
    column->setContentsMargins(Margin, Margin, Margin, Margin);
    column->setSpacing(Spacing);
    for (ui::Component* c : form.Components())
        if (auto* control = dynamic_cast<ui::Control*>(c); control && !control->ParentPage() &&
                                                           !dynamic_cast<ui::ToolBar*>(control) &&
                                                           !dynamic_cast<ui::StatusBar*>(control))
            column->addWidget(window_.Bind(*control, *this));
    return column;
}

QLayout* LayoutBuilder::Build(const ui::LayoutItem& item) {
    QBoxLayout* box =
        item.ItemKind() == Kind::Row ? static_cast<QBoxLayout*>(new QHBoxLayout) : new QVBoxLayout;
    box->setContentsMargins(0, 0, 0, 0);
    box->setSpacing(Spacing);
    if (item.ItemKind() == Kind::Column || item.ItemKind() == Kind::Row)
        AddItems(*box, item);
    else
        Add(*box, item);
    if (!Expands(item) && item.ItemKind() != Kind::Row) box->addStretch(1);
    return box;
}

void LayoutBuilder::AddItems(QBoxLayout& box, const ui::LayoutItem& parent) {
    const auto& items = parent.Items();
    for (std::size_t i = 0; i < items.size();) {
        if (items[i].ItemKind() == Kind::FormRow) {
            std::vector<const ui::LayoutItem*> run;
            while (i < items.size() && items[i].ItemKind() == Kind::FormRow)
                run.push_back(&items[i++]);
            AddFormRows(box, run.data(), static_cast<int>(run.size()));
        } else {
            Add(box, items[i++]);
        }
    }
}

void LayoutBuilder::Add(QBoxLayout& box, const ui::LayoutItem& item) {
    int stretch = Expands(item) ? 1 : 0;
    switch (item.ItemKind()) {
    case Kind::Control:
        box.addWidget(window_.Bind(*item.Widget(), *this), stretch);
        break;
    case Kind::Column:
    case Kind::Row: {
        QBoxLayout* inner = item.ItemKind() == Kind::Row ? static_cast<QBoxLayout*>(new QHBoxLayout)
                                                         : new QVBoxLayout;
        inner->setSpacing(Spacing);
        AddItems(*inner, item);
        box.addLayout(inner, stretch);
        break;
    }
    case Kind::Group: {
        auto* group = new QGroupBox(QString::fromStdString(item.Title()));
        auto* inner = new QVBoxLayout(group);
        inner->setSpacing(Spacing);
        AddItems(*inner, item);
        box.addWidget(group, stretch);
        break;
    }
    case Kind::FormRow: {
        const ui::LayoutItem* row = &item;
        AddFormRows(box, &row, 1);
        break;
    }
    case Kind::Stretch:
        box.addStretch(item.StretchFactor());
        break;
    case Kind::ButtonRow: {
        auto* buttons = new QHBoxLayout;
        buttons->setSpacing(Spacing);
        buttons->setContentsMargins(0, Spacing, 0, 0);
        buttons->addStretch(1);
        for (const auto& child : item.Items())
            Add(*buttons, child);
        box.addLayout(buttons);
        break;
    }
    }
}

void LayoutBuilder::AddFormRows(QBoxLayout& box, const ui::LayoutItem* const* rows, int count) {
    auto* form = new QFormLayout;
    form->setHorizontalSpacing(Spacing * 2);
    form->setVerticalSpacing(Spacing);
    form->setLabelAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    for (int i = 0; i < count; ++i) {
        const ui::LayoutItem& row = *rows[i];
        QWidget* field = FieldWidget(row.Items().front());
        QWidget* label = nullptr;
        if (auto* named = dynamic_cast<ui::Label*>(row.Widget()))
            label = window_.Bind(*named, *this);
        else {
            auto* text = new QLabel(QString::fromStdString(row.Title()));
            if (ui::AcceleratorOf(row.Title())) text->setBuddy(field);
            label = text;
        }
        form->addRow(label, field);
    }
    box.addLayout(form);
}

QWidget* LayoutBuilder::FieldWidget(const ui::LayoutItem& item) {
    if (item.ItemKind() == Kind::Control) return window_.Bind(*item.Widget(), *this);
    auto* holder = new QWidget;
    QLayout* layout = Build(item);
    holder->setLayout(layout);
    return holder;
}

} // namespace corvane::desktop
