#pragma once

#include "shell/patterns/ChoicesFilterForm.h"
#include "store/Table.h"

#include <string>
#include <vector>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

class TfrmInvTotals;

// What the dialog offers, as chosen; the default is every choice at <All>.
struct InvTotalsChoices {
    store::Value Item, Warehouse, Type, Subtype;
};

// Narrows the totals to one item, one warehouse, one type or one subtype of it. The choices are
// conditions of the totals query's WHERE line, not a filter on its rows.
class TfrmInvTotalsFilter : public shell::ChoicesFilterForm<InvTotalsChoices> {
public:
    TfrmInvTotalsFilter(ui::Application& app, TfrmInvTotals& list, shell::TdmLookUps& lookUps);

    store::Table tblItem;
    store::Table tblItemSubtype;
    ui::DBLookupComboBox cboItem;
    ui::DBLookupComboBox cboWarehouse;
    ui::DBLookupComboBox cboItemType;
    ui::DBLookupComboBox cboItemSubtype;

    // The conditions the choices give now, each in parentheses.
    std::vector<std::string> Conditions() const;

private:
    InvTotalsChoices Current() const override;
    void Restore(const InvTotalsChoices& choices) override;
    void LimitSubtypes();
    void ApplyChoices() override;

    TfrmInvTotals& totals_;
};

} // namespace corvane::inventory
