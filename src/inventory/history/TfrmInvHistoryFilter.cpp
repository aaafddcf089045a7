#include "inventory/history/TfrmInvHistoryFilter.h"

#include "inventory/history/TfrmInvHistory.h"
#include "shell/lookups/TdmLookUps.h"
#include "shell/patterns/FilterTerms.h"
#include "ui/Layout.h"

#include <memory>

namespace corvane::inventory {

namespace {

// What an unticked All box puts in its number until the user steps it.
constexpr int kFirstYear = 1997;
constexpr int kFirstPeriod = 1;
constexpr const char* kAll = "<All>";

// A number with an All box beside it: while the box is ticked the number reads "<All>" and
// limits nothing.
class NumberOrAll : public shell::FilterForm::Criterion {
public:
    NumberOrAll(ui::SpinEdit& number, ui::CheckBox& all, std::string field, int start)
        : number_(number), all_(all), field_(std::move(field)), start_(start) {
        all_.OnClick = [this] { Follow(); };
    }
    bool IsSet() const override { return !all_.Checked(); }
    std::string Term() const override { return shell::LookupTerm(field_, number_.Value()); }
    store::Value Save() const override {
        return all_.Checked() ? store::Value() : store::Value(std::int64_t{number_.Value()});
    }
    void Restore(const store::Value& saved) override {
        Tick(saved.IsNull());
        if (!saved.IsNull()) number_.SetValue(static_cast<int>(saved.Int()));
    }
    void Clear() override { Tick(true); }

private:
    void Tick(bool all) {
        all_.OnClick = nullptr;
        all_.SetChecked(all);
        all_.OnClick = [this] { Follow(); };
        Follow();
    }
    void Follow() {
        const bool all = all_.Checked();
        number_.Enabled = !all;
        if (all)
            number_.SetText(kAll);
        else
            number_.SetValue(start_);
    }

    ui::SpinEdit& number_;
    ui::CheckBox& all_;
    std::string field_;
    int start_;
};

// The kind of movement, by its place in the list after "<All>".
class TransactionKind : public shell::FilterForm::Criterion {
public:
    explicit TransactionKind(ui::ComboBox& combo) : combo_(combo) {}
    bool IsSet() const override { return combo_.ItemIndex() >= 1; }
    std::string Term() const override { return shell::LookupTerm("TransType", combo_.ItemIndex()); }
    store::Value Save() const override { return std::int64_t{combo_.ItemIndex()}; }
    void Restore(const store::Value& saved) override {
        combo_.SetItemIndex(static_cast<int>(saved.Int()));
    }
    void Clear() override { combo_.SetItemIndex(0); }

private:
    ui::ComboBox& combo_;
};

} // namespace

TfrmInvHistoryFilter::TfrmInvHistoryFilter(ui::Application& app, TfrmInvHistory& list,
                                           shell::TdmLookUps& lookUps)
    : FilterForm(app, "frmInvHistoryFilter", list), tblItem(list.Db(), "Item"),
      cboItem(*this, "cboItem", tblItem, "ItemID", "ItemNo;ItemDescription"),
      cboWarehouse(*this, "cboWarehouse", lookUps.ListSource(shell::LookUp::Warehse), "WarehouseID",
                   "WarehouseName") {
    using namespace ui;
    lookUps.Open(shell::LookUp::Warehse, list.Db());
    tblItem.Name = "tblItem";
    tblItem.Open();
    tblItem.SetIndexName("ItemNo");
    Caption = "Filter Inventory History";
    cboTransactions.Items = {kAll, "Adjustments", "Sales", "PO Receipts"};
    spnYear.MinValue = 1900;
    spnYear.MaxValue = 9999;
    spnPeriod.MinValue = 1;
    spnPeriod.MaxValue = 12;
    SetLayout(Column{
        FormRow{"Item:", cboItem},
        FormRow{"Warehouse:", cboWarehouse},
        FormRow{"Transactions:", cboTransactions},
        FormRow{"Year:", Row{spnYear, chkYearAll}},
        FormRow{"Period:", Row{spnPeriod, chkPeriodAll}},
        ButtonRow{btnOK, btnCancel, btnReset},
    });
    AddLookupCriterion(cboItem, "ItemID");
    AddLookupCriterion(cboWarehouse, "WarehouseID");
    AddCriterion(std::make_unique<TransactionKind>(cboTransactions));
    AddCriterion(std::make_unique<NumberOrAll>(spnYear, chkYearAll, "GLYear", kFirstYear));
    AddCriterion(std::make_unique<NumberOrAll>(spnPeriod, chkPeriodAll, "GLPeriod", kFirstPeriod));
    Reset();
}

} // namespace corvane::inventory
