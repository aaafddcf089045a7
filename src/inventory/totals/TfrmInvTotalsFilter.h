#pragma once

#include "shell/patterns/FilterForm.h"
#include "store/Table.h"

#include <string>
#include <vector>

namespace corvane::shell {
class TdmLookUps;
}

namespace corvane::inventory {

class TfrmInvTotals;

// Narrows the totals to one item, one warehouse, one type or one subtype of it. The choices are
// conditions of the totals query's WHERE line, not a filter on its rows.
class TfrmInvTotalsFilter : public shell::FilterForm {
public:
    TfrmInvTotalsFilter(ui::Application& app, TfrmInvTotals& list, shell::TdmLookUps& lookUps);

    store::Table tblItem;
    store::Table tblItemSubtype;
    ui::DBLookupComboBox cboItem;
    ui::DBLookupComboBox cboWarehouse;
    ui::DBLookupComboBox cboItemType;
    ui::DBLookupComboBox cboItemSubtype;

    // Every choice back to <All>, without closing.
    void Clear();
    // The conditions the choices give now, each in parentheses.
    std::vector<std::string> Conditions() const;

private:
    struct Choices {
        store::Value Item, Warehouse, Type, Subtype;
    };
    Choices Current() const;
    void Restore(const Choices& choices);
    void LimitSubtypes();
    void Apply();

    TfrmInvTotals& totals_;
    Choices saved_;
};

} // namespace corvane::inventory
