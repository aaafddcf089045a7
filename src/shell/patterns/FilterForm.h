#pragma once

#include "store/Value.h"
#include "ui/Button.h"
#include "ui/DBLookupComboBox.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/RadioGroup.h"

#include <memory>
#include <string>
#include <vector>

namespace corvane::shell {

class ListForm;

// The criteria of a list, asked in a modal dialog and turned into the list's filter on OK. It is
// made once and kept, so that it opens with the criteria in force. A subclass declares its
// controls, registers each as a criterion and lays them out above ButtonRow{btnOK, btnCancel,
// btnReset}.
class FilterForm : public ui::Form {
public:
    FilterForm(ui::Application& app, std::string name, ListForm& list);
    ~FilterForm() override;

    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};
    ui::Button btnReset{*this, "btnReset", "&Reset"};

    // Every criterion back to neutral, without closing.
    void Reset();
    // The expression the criteria give now; empty when all are neutral.
    std::string Expression() const;
    ListForm& List() const { return list_; }

    // One of the criteria of the dialog and how it reads, saves and clears itself.
    class Criterion {
    public:
        virtual ~Criterion() = default;
        virtual bool IsSet() const = 0;
        virtual std::string Term() const = 0;
        virtual store::Value Save() const = 0;
        virtual void Restore(const store::Value& saved) = 0;
        virtual void Clear() = 0;
    };

protected:
    // A typed text, matched as a LIKE pattern on the upper-cased field.
    void AddTextCriterion(ui::Edit& edit, std::string fieldName);
    // A choice of Yes, No and All (at the given item indexes) on a boolean field.
    void AddYesNoCriterion(ui::RadioGroup& group, std::string fieldName, int yesIndex, int noIndex,
                           int allIndex);
    // A row of another table chosen by its integer key.
    void AddLookupCriterion(ui::DBLookupComboBox& combo, std::string fieldName);
    // A criterion of the form's own making.
    void AddCriterion(std::unique_ptr<Criterion> criterion);

private:
    void Apply();

    ListForm& list_;
    std::vector<std::unique_ptr<Criterion>> criteria_;
    std::vector<store::Value> saved_;
};

} // namespace corvane::shell
