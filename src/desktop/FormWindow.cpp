#include "desktop/FormWindow.h"

#include "desktop/BindingFactory.h"
#include "desktop/ControlBinding.h"
#include "desktop/GridBinding.h"
#include "desktop/KeyTranslation.h"
#include "desktop/LayoutBuilder.h"
#include "desktop/MenuBarBinding.h"
#include "desktop/PopupMenuBinding.h"
#include "desktop/QtHost.h"
#include "desktop/SlimBar.h"
#include "ui/Application.h"
#include "ui/Control.h"
#include "ui/Form.h"
#include "ui/KeyRouter.h"
#include "ui/Menu.h"
#include "ui/StatusBar.h"
#include "ui/ToolBar.h"

#include <QAbstractItemView>
#include <QAbstractScrollArea>
#include <QApplication>
#include <QCalendarWidget>
#include <QCloseEvent>
#include <QComboBox>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMenuBar>
#include <QMoveEvent>
#include <QPlainTextEdit>
#include <QResizeEvent>
#include <QScreen>
#include <QVBoxLayout>

#include <algorithm>

namespace corvane::desktop {

FormWindow::FormWindow(QtHost& host, ui::Form& form) : host_(host), form_(form) {
    setObjectName(QString::fromStdString(form.Name()));
    Qt::WindowFlags flags = Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                            Qt::WindowMinMaxButtonsHint | Qt::WindowCloseButtonHint;
    if (form.StayOnTop) flags |= Qt::WindowStaysOnTopHint;
    setWindowFlags(flags);
    Build();
}

FormWindow::~FormWindow() {
    // The form may be gone already; nothing the widgets do while they go may reach it.
    Orphan();
    for (auto& [widget, binding] : watched_)
        const_cast<QObject*>(widget)->removeEventFilter(this);
}

void FormWindow::Orphan() {
    if (orphaned_) return;
    orphaned_ = true;
    for (auto& binding : bindings_)
        binding->Detach();
}

void FormWindow::Build() {
    auto* outer = new QVBoxLayout(this);
    outer->setContentsMargins(0, 0, 0, 0);
    outer->setSpacing(0);
    LayoutBuilder builder(*this);

    for (ui::Component* c : form_.Components())
        if (auto* menu = dynamic_cast<ui::MainMenu*>(c)) {
            menu_ = std::make_unique<MenuBarBinding>(*this, *menu);
            outer->setMenuBar(menu_->Bar());
            break;
        }

    // Tool bars and status bars outside the layout take their usual places above and below it.
    std::vector<ui::Control*> inLayout;
    if (form_.Layout())
        form_.Layout()->ForEachControl([&](ui::Control& c) { inLayout.push_back(&c); });
    auto outside = [&](ui::Control* c) {
        return std::find(inLayout.begin(), inLayout.end(), c) == inLayout.end();
    };
    for (ui::Component* c : form_.Components())
        if (auto* bar = dynamic_cast<ui::ToolBar*>(c); bar && outside(bar)) {
            outer->addWidget(Bind(*bar, builder));
        }

    auto* body = new QWidget(this);
    QLayout* content = builder.BuildForm(form_);
    body->setLayout(content);
    outer->addWidget(body, 1);
    if (form_.App().MainForm() == &form_ && !HasGrowingContent())
        bar_ = std::make_unique<SlimBar>(*this, *body, form_.App().ScaleFactor);

    for (ui::Component* c : form_.Components())
        if (auto* bar = dynamic_cast<ui::StatusBar*>(c); bar && outside(bar)) {
            outer->addWidget(Bind(*bar, builder));
        }
}

QWidget* FormWindow::Bind(ui::Control& control, LayoutBuilder& builder) {
    if (ControlBinding* b = BindingOf(control)) return b->Widget();
    std::unique_ptr<ControlBinding> binding = MakeBinding(*this, control, builder);
    ControlBinding& ref = *binding;
    bindings_.push_back(std::move(binding));
    byControl_[&control] = &ref;
    QWidget* widget = ref.Widget();
    widget->setObjectName(QString::fromStdString(control.Name()));
    Watch(ref.FocusWidget(), ref);
    if (control.Popup) {
        widget->setContextMenuPolicy(Qt::CustomContextMenu);
        QObject::connect(widget, &QWidget::customContextMenuRequested,
                         [this, widget, &control](const QPoint& pos) {
                             // A scrolled view reports the point on its viewport.
                             auto* area = qobject_cast<QAbstractScrollArea*>(widget);
                             QWidget* from = area ? area->viewport() : widget;
                             ShowPopup(control, from->mapToGlobal(pos));
                         });
    }
    return widget;
}

PopupMenuBinding* FormWindow::PopupOf(const ui::PopupMenu& popup) const {
    for (const auto& p : popups_)
        if (&p->Popup() == &popup) return p.get();
    return nullptr;
}

void FormWindow::ShowPopup(ui::Control& control, const QPoint& globalPos) {
    if (orphaned_ || !control.Popup) return;
    ui::PopupMenu& popup = *control.Popup;
    bool open = false;
    UserEvent([&] {
        if (!control.Enabled || !control.Showing()) return;
        // A right click goes into the control first, as a left click would.
        if (!control.Focused() && control.CanFocus()) control.SetFocus();
        popup.Popup();
        open = true;
    });
    if (!open || orphaned_) return;
    PopupMenuBinding* binding = PopupOf(popup);
    if (!binding) {
        popups_.push_back(std::make_unique<PopupMenuBinding>(*this, popup));
        binding = popups_.back().get();
    }
    binding->Show(globalPos);
}

void FormWindow::Watch(QWidget* widget, ControlBinding& binding) {
    if (!widget) return;
    watched_[widget] = &binding;
    widget->installEventFilter(this);
}

ControlBinding* FormWindow::BindingOf(const ui::Control& control) const {
    auto it = byControl_.find(&control);
    return it == byControl_.end() ? nullptr : it->second;
}

QWidget* FormWindow::WidgetOf(std::string_view name) const {
    for (const auto& b : bindings_)
        if (b->Control().Name() == name) return b->Widget();
    return nullptr;
}

QMenuBar* FormWindow::MenuBar() const {
    return menu_ ? menu_->Bar() : nullptr;
}

void FormWindow::Pull() {
    if (orphaned_) return;
    setWindowTitle(QString::fromStdString(form_.Caption));
    if (menu_) menu_->Pull();
    for (auto& p : popups_)
        p->Pull();
    for (auto& b : bindings_)
        b->Pull();
    // After the controls: what is shown now decides the size of a bar.
    FollowGeometry();
    if (ui::Control* active = form_.ActiveControl())
        if (ControlBinding* b = BindingOf(*active)) {
            QWidget* target = b->FocusWidget();
            // As a Tab would: the control shows its focus mark, whatever moved the focus.
            if (target && target->isVisibleTo(this) && target != focusWidget())
                target->setFocus(Qt::TabFocusReason);
        }
}

bool FormWindow::HasGrowingContent() const {
    // A month calendar draws its days in a view too, but it has the size it needs; a combo
    // keeps its drop-down list in a hidden view, which asks for no room in the form.
    auto ownsView = [](QWidget* w) {
        return qobject_cast<QCalendarWidget*>(w) != nullptr ||
               qobject_cast<QComboBox*>(w) != nullptr;
    };
    for (QAbstractItemView* view : findChildren<QAbstractItemView*>()) {
        QWidget* up = view->parentWidget();
        while (up && up != this && !ownsView(up))
            up = up->parentWidget();
        if (!up || !ownsView(up)) return true;
    }
    return findChild<QPlainTextEdit*>() != nullptr;
}

QSize FormWindow::LeastSize() const {
    // Bars and frames come on top of the form's size when the widgets ask for more, and a list
    // or a memo is never left showing a few lines only.
    QSize least = sizeHint();
    if (HasGrowingContent()) least = least.expandedTo(QSize(520, 380));
    // A list asks for all its columns, but never for more than the screen.
    if (QScreen* screen = QGuiApplication::primaryScreen())
        least = least.boundedTo(screen->availableSize());
    return least;
}

QSize FormWindow::WithWiderColumns(const QSize& asked) const {
    // The form counts its grid columns at the widths it gave them; columns the real font made
    // wider widen the window, as far as the screen allows.
    int extra = 0;
    for (const auto& b : bindings_)
        if (auto* grid = dynamic_cast<GridBinding*>(b.get())) extra += grid->ExtraWidth();
    QSize wanted(asked.width() + extra, asked.height());
    if (QScreen* screen = QGuiApplication::primaryScreen())
        wanted.setWidth(
            std::min(wanted.width(), std::max(asked.width(), screen->availableSize().width())));
    return wanted;
}

void FormWindow::FollowGeometry() {
    // A maximised or minimised window keeps its state; the form's size is its normal one.
    if (sized_ && windowState() != Qt::WindowNoState) return;
    const QSize asked(form_.ClientWidth, form_.ClientHeight);
    const QPoint place(form_.Left, form_.Top);
    if (bar_) {
        bar_->Fit();
    } else if (!sized_) {
        QSize size = LeastSize();
        if (asked.width() > 0 && asked.height() > 0)
            size = size.expandedTo(WithWiderColumns(asked));
        resize(size);
    } else if (asked.width() > 0 && asked.height() > 0 && asked != size()) {
        // The form changed its size since the window last told it (a list back to its start
        // size); what it asks is honoured down to what the content needs. A width the form
        // worked out anew counts its columns as it gave them.
        QSize wanted = asked.width() == width() ? asked : WithWiderColumns(asked);
        resize(wanted.expandedTo(LeastSize()));
    }
    if (place.x() >= 0 && place.y() >= 0 && (!sized_ || place != pos())) move(place);
    if (!sized_ && form_.State == ui::WindowState::Maximized) setWindowState(Qt::WindowMaximized);
    sized_ = true;
    // From here the form's geometry is the window's: a person's resizing and moving show in it,
    // so a change the form makes later stands out from it.
    form_.ClientWidth = width();
    form_.ClientHeight = height();
    if (place.x() >= 0 && place.y() >= 0) {
        form_.Left = x();
        form_.Top = y();
    }
}

void FormWindow::setVisible(bool visible) {
    // A dialog that shows tells its focus widget it got the focus by a Tab, and a box then selects
    // all its text: the key that opened a search, put there to be followed by the next, would be
    // typed over. The form's caret and selection stand and are shown again.
    opening_ = visible;
    QDialog::setVisible(visible);
    opening_ = false;
    if (!visible || orphaned_) return;
    if (ui::Control* active = form_.ActiveControl())
        if (ControlBinding* b = BindingOf(*active)) b->Pull();
}

void FormWindow::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    if (sized_ && !orphaned_ && windowState() == Qt::WindowNoState) {
        form_.ClientWidth = width();
        form_.ClientHeight = height();
    }
}

void FormWindow::moveEvent(QMoveEvent* event) {
    QDialog::moveEvent(event);
    if (sized_ && !orphaned_ && isVisible() && windowState() == Qt::WindowNoState) {
        form_.Left = x();
        form_.Top = y();
    }
}

void FormWindow::DropDownMenu(const ui::MenuItem& item) {
    if (orphaned_ || !menu_ || !isVisible()) return;
    menu_->DropDown(item);
}

void FormWindow::WheelTurned(bool towardsUser) {
    if (orphaned_) return;
    QWidget* target = focusWidget();
    if (!target) target = this;
    QKeyEvent press(QEvent::KeyPress, towardsUser ? Qt::Key_Down : Qt::Key_Up, Qt::NoModifier);
    QApplication::sendEvent(target, &press);
}

void FormWindow::UserEvent(const std::function<void()>& act) {
    if (orphaned_) return;
    ui::Application& app = form_.App();
    try {
        app.Run(act);
    } catch (const std::exception& e) {
        // Only a script's mistake passes Run; on the desktop it is the program's and is shown.
        app.HandleException(e);
        host_.EventDone();
    }
}

void FormWindow::RouteKey(const QKeyEvent& event, ui::Control* target) {
    TranslatedKey key = TranslateKey(event);
    if (key.Stroke.Code == ui::Key::None && key.Char == 0) return;
    UserEvent([&] {
        // The key went to the widget the user sees focused; the form must agree first.
        if (target && !target->Focused()) {
            if (!target->CanFocus()) return;
            target->SetFocus();
            if (!target->Focused()) return;
        }
        ui::KeyRouter::Route(form_, key.Stroke, key.Char);
    });
}

namespace {

// Alt alone and Alt with a letter belong to the menu bar and the mnemonics of buttons: Qt works
// them, and the form never hears of them.
bool IsMenuKey(const QKeyEvent& key) {
    if (key.key() == Qt::Key_Alt) return true;
    if (!key.modifiers().testFlag(Qt::AltModifier) || key.modifiers().testFlag(Qt::ControlModifier))
        return false;
    const int k = key.key();
    return (k >= Qt::Key_A && k <= Qt::Key_Z) || (k >= Qt::Key_0 && k <= Qt::Key_9);
}

} // namespace

bool FormWindow::eventFilter(QObject* watched, QEvent* event) {
    auto it = watched_.find(watched);
    if (it == watched_.end() || orphaned_) return QDialog::eventFilter(watched, event);
    ControlBinding& binding = *it->second;
    if ((event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride) &&
        IsMenuKey(*static_cast<QKeyEvent*>(event)))
        return QDialog::eventFilter(watched, event);
    if (event->type() == QEvent::KeyPress) {
        auto* key = static_cast<QKeyEvent*>(event);
        // The menu key and Shift+F10 open the control's popup menu where its focus is.
        bool menuKey = key->key() == Qt::Key_Menu ||
                       (key->key() == Qt::Key_F10 && key->modifiers() == Qt::ShiftModifier);
        if (menuKey && binding.Control().Popup) {
            auto* widget = static_cast<QWidget*>(watched);
            ShowPopup(binding.Control(), widget->mapToGlobal(widget->rect().center()));
            return true;
        }
        if (binding.RoutesKey(*key)) {
            RouteKey(*key, &binding.Control());
            return true;
        }
    } else if (event->type() == QEvent::ShortcutOverride) {
        // Keys the form routes must not be taken by a shortcut of the widget on the way.
        auto* key = static_cast<QKeyEvent*>(event);
        if (binding.RoutesKey(*key)) {
            event->accept();
            return true;
        }
    } else if (event->type() == QEvent::FocusIn) {
        auto reason = static_cast<QFocusEvent*>(event)->reason();
        ui::Control& control = binding.Control();
        bool byUser = reason == Qt::MouseFocusReason || reason == Qt::TabFocusReason ||
                      reason == Qt::BacktabFocusReason || reason == Qt::ShortcutFocusReason;
        if (byUser && !control.Focused() && control.CanFocus())
            UserEvent([&] { control.SetFocus(); });
    }
    return QDialog::eventFilter(watched, event);
}

void FormWindow::keyPressEvent(QKeyEvent* event) {
    if (orphaned_ || IsMenuKey(*event)) return QDialog::keyPressEvent(event);
    RouteKey(*event, nullptr);
}

void FormWindow::closeEvent(QCloseEvent* event) {
    // The form decides; it hides the window itself when it closes.
    event->ignore();
    if (!orphaned_ && form_.Visible()) UserEvent([this] { form_.Close(); });
}

void FormWindow::reject() {
    // Escape reaching the dialog itself: the form's Cancel button handles it, as keys do.
    if (!orphaned_ && form_.Visible()) UserEvent([this] { form_.PressKey(ui::Key::Escape); });
}

} // namespace corvane::desktop
