#include "desktop/BindingFactory.h"

#include "desktop/BarBindings.h"
#include "desktop/ChoiceBindings.h"
#include "desktop/GridBinding.h"
#include "desktop/ListBoxBinding.h"
#include "desktop/LookupComboBinding.h"
#include "desktop/MonthCalendarBinding.h"
#include "desktop/PageControlBinding.h"
#include "desktop/ReportPageBinding.h"
#include "desktop/RichEditBinding.h"
#include "desktop/TextBindings.h"
#include "reports/preview/ReportPageView.h"
#include "ui/Button.h"
#include "ui/CheckBox.h"
#include "ui/ComboBox.h"
#include "ui/DBLookupComboBox.h"
#include "ui/DateEdit.h"
#include "ui/Grid.h"
#include "ui/Label.h"
#include "ui/ListBox.h"
#include "ui/Memo.h"
#include "ui/MonthCalendar.h"
#include "ui/PageControl.h"
#include "ui/ProgressBar.h"
#include "ui/RadioGroup.h"
#include "ui/RichEdit.h"
#include "ui/SpinEdit.h"
#include "ui/StatusBar.h"
#include "ui/ToolBar.h"

#include <QLabel>
#include <QLineEdit>

namespace corvane::desktop {

namespace {

class UnknownBinding : public ControlBinding {
public:
    UnknownBinding(FormWindow& window, ui::Control& control)
        : ControlBinding(window, control),
          label_(new QLabel(QString("[%1 %2]").arg(control.TypeName(),
                                                   QString::fromStdString(control.Name())))) {}
    QWidget* Widget() const override { return label_; }

protected:
    void PullState() override {}

private:
    QLabel* label_;
};

} // namespace

std::unique_ptr<ControlBinding> MakeBinding(FormWindow& window, ui::Control& control,
                                            LayoutBuilder& builder) {
    ui::Control* c = &control;
    if (auto* x = dynamic_cast<ui::Grid*>(c)) return std::make_unique<GridBinding>(window, *x);
    if (auto* x = dynamic_cast<reports::ReportPageView*>(c))
        return std::make_unique<ReportPageBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::RichEdit*>(c))
        return std::make_unique<RichEditBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::Memo*>(c)) return std::make_unique<MemoBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::DateEdit*>(c))
        return std::make_unique<DateEditBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::SpinEdit*>(c)) return std::make_unique<SpinBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::ComboBox*>(c)) return std::make_unique<ComboBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::CustomEdit*>(c))
        return std::make_unique<EditBinding>(window, *x, new QLineEdit);
    if (auto* x = dynamic_cast<ui::DBLookupComboBox*>(c))
        return std::make_unique<LookupComboBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::MonthCalendar*>(c))
        return std::make_unique<MonthCalendarBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::Label*>(c)) return std::make_unique<LabelBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::ListBox*>(c))
        return std::make_unique<ListBoxBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::Button*>(c)) return std::make_unique<ButtonBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::CheckBox*>(c)) return std::make_unique<CheckBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::RadioGroup*>(c))
        return std::make_unique<RadioBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::PageControl*>(c))
        return std::make_unique<PageControlBinding>(window, *x, builder);
    if (auto* x = dynamic_cast<ui::ToolBar*>(c))
        return std::make_unique<ToolBarBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::StatusBar*>(c))
        return std::make_unique<StatusBarBinding>(window, *x);
    if (auto* x = dynamic_cast<ui::ProgressBar*>(c))
        return std::make_unique<ProgressBinding>(window, *x);
    return std::make_unique<UnknownBinding>(window, control);
}

} // namespace corvane::desktop
