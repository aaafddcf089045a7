#pragma once

#include "shell/patterns/FilterForm.h"

namespace corvane::shell {

// A filter dialog whose choices are not criteria of the list's filter, such as the conditions of
// a query's WHERE line. The subclass reads its choices as one value, shows a value of them and
// applies them itself; this dialog keeps what was in force when it opened, so that Cancel puts
// it back and the next opening shows it. A default Choices is every choice at <All>.
template <typename Choices> class ChoicesFilterForm : public FilterForm {
public:
    // Every choice back to <All>, without closing.
    void Clear() { Restore(Choices{}); }

protected:
    ChoicesFilterForm(ui::Application& app, std::string name, ListForm& list)
        : FilterForm(app, std::move(name), list) {
        btnOK.OnClick = [this] { ApplyChoices(); };
        btnCancel.OnClick = [this] {
            Restore(saved_);
            SetModalResult(ui::mrCancel);
        };
        btnReset.OnClick = [this] { Clear(); };
        auto placeDialog = OnShow;
        OnShow = [this, placeDialog] {
            if (placeDialog) placeDialog();
            saved_ = Current();
        };
    }

    virtual Choices Current() const = 0;
    virtual void Restore(const Choices& choices) = 0;
    // Puts the choices in force on the list and closes with OK.
    virtual void ApplyChoices() = 0;

private:
    Choices saved_;
};

} // namespace corvane::shell
