#include "shell/patterns/FilterForm.h"

#include "shell/patterns/FilterTerms.h"
#include "shell/patterns/ListForm.h"
#include "ui/Host.h"

#include <algorithm>

namespace corvane::shell {

namespace {

class TextCriterion : public FilterForm::Criterion {
public:
    TextCriterion(ui::Edit& edit, std::string field) : edit_(edit), field_(std::move(field)) {}
    bool IsSet() const override { return !edit_.Text().empty(); }
    std::string Term() const override { return TextTerm(field_, edit_.Text()); }
    store::Value Save() const override { return edit_.Text(); }
    void Restore(const store::Value& saved) override { edit_.SetText(saved.Str()); }
    void Clear() override { edit_.SetText({}); }

private:
    ui::Edit& edit_;
    std::string field_;
};

class YesNoCriterion : public FilterForm::Criterion {
public:
    YesNoCriterion(ui::RadioGroup& group, std::string field, int yes, int no, int all)
        : group_(group), field_(std::move(field)), yes_(yes), no_(no), all_(all) {}
    bool IsSet() const override { return group_.ItemIndex() == yes_ || group_.ItemIndex() == no_; }
    std::string Term() const override { return YesNoTerm(field_, group_.ItemIndex() == yes_); }
    store::Value Save() const override { return group_.ItemIndex(); }
    void Restore(const store::Value& saved) override {
        group_.SetItemIndex(static_cast<int>(saved.Int()));
    }
    void Clear() override { group_.SetItemIndex(all_); }

private:
    ui::RadioGroup& group_;
    std::string field_;
    int yes_, no_, all_;
};

class LookupCriterion : public FilterForm::Criterion {
public:
    LookupCriterion(ui::DBLookupComboBox& combo, std::string field)
        : combo_(combo), field_(std::move(field)) {}
    bool IsSet() const override { return !combo_.KeyValue().IsNull(); }
    std::string Term() const override { return LookupTerm(field_, combo_.KeyValue().Int()); }
    store::Value Save() const override { return combo_.KeyValue(); }
    void Restore(const store::Value& saved) override { combo_.SetKeyValue(saved); }
    void Clear() override { combo_.SetKeyValue(store::Value()); }

private:
    ui::DBLookupComboBox& combo_;
    std::string field_;
};

} // namespace

FilterForm::FilterForm(ui::Application& app, std::string name, ListForm& list)
    : Form(app, std::move(name)), list_(list) {
    Caption = list.Title() + " Filter";
    KeyPreview = true;
    OnKeyDown = [](ui::Key& key, ui::Modifiers) { ui::SwallowAlt(key); };
    btnOK.Default = true;
    btnCancel.Cancel = true;
    btnOK.OnClick = [this] { Apply(); };
    btnCancel.OnClick = [this] {
        // Back to what is in force, so that the next opening shows it.
        for (std::size_t i = 0; i < criteria_.size() && i < saved_.size(); ++i)
            criteria_[i]->Restore(saved_[i]);
        SetModalResult(ui::mrCancel);
    };
    btnReset.OnClick = [this] { Reset(); };
    OnShow = [this] {
        saved_.clear();
        for (const auto& criterion : criteria_)
            saved_.push_back(criterion->Save());
        // A closed list has no place on the screen; whoever opens the dialog then places it.
        if (list_.Visible() && list_.Left >= 0 && list_.ClientWidth > 0 && ClientWidth > 0)
            CentreOn(ui::ScreenRect{list_.Left, std::max(list_.Top, 0), list_.ClientWidth,
                                    list_.ClientHeight});
    };
}

FilterForm::~FilterForm() = default;

void FilterForm::AddTextCriterion(ui::Edit& edit, std::string fieldName) {
    criteria_.push_back(std::make_unique<TextCriterion>(edit, std::move(fieldName)));
}

void FilterForm::AddYesNoCriterion(ui::RadioGroup& group, std::string fieldName, int yesIndex,
                                   int noIndex, int allIndex) {
    criteria_.push_back(
        std::make_unique<YesNoCriterion>(group, std::move(fieldName), yesIndex, noIndex, allIndex));
    criteria_.back()->Clear();
}

void FilterForm::AddLookupCriterion(ui::DBLookupComboBox& combo, std::string fieldName) {
    criteria_.push_back(std::make_unique<LookupCriterion>(combo, std::move(fieldName)));
}

void FilterForm::AddCriterion(std::unique_ptr<Criterion> criterion) {
    criteria_.push_back(std::move(criterion));
}

void FilterForm::Reset() {
    for (const auto& criterion : criteria_)
        criterion->Clear();
}

std::string FilterForm::Expression() const {
    std::vector<std::string> terms;
    for (const auto& criterion : criteria_)
        if (criterion->IsSet()) terms.push_back(criterion->Term());
    return JoinTerms(terms);
}

void FilterForm::Apply() {
    std::string expression = Expression();
    store::DataSet& table = list_.MainDataSet();
    if (expression.empty()) {
        list_.mnuFilter.SetChecked(false);
        table.SetFiltered(false);
    } else {
        // The table checks the expression first: a bad one raises and nothing changes.
        table.SetFilter(expression);
        table.SetFiltered(true);
        list_.mnuFilter.SetChecked(true);
    }
    list_.ShowList();
    SetModalResult(ui::mrOK);
}

} // namespace corvane::shell
