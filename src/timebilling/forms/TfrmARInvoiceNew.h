#pragma once

#include "receivables/invoices/forms/NewInvoiceChoice.h"
#include "store/Table.h"
#include "timebilling/domain/AutoCreate.h"
#include "ui/Button.h"
#include "ui/DBLookupComboBox.h"
#include "ui/DateEdit.h"
#include "ui/Edit.h"
#include "ui/Form.h"
#include "ui/RadioGroup.h"

#include <array>
#include <optional>
#include <string>

namespace corvane::timebilling {

// "New Invoice(s) Selection": stands ahead of every new invoice. A manual invoice is left to the
// invoice list; AutoCreate turns the unbilled time up to the cut-off into invoices at once, one
// for each customer, optionally of one customer and one job. The choices stay from one opening
// to the next; Cancel puts back those of the opening.
class TfrmARInvoiceNew : public ui::Form, public receivables::NewInvoiceChoice {
public:
    TfrmARInvoiceNew(ui::Application& app, store::Database& db);

    store::Table tblCustomer, tblJob;
    ui::RadioGroup rgpInvoice;
    ui::DBLookupComboBox cboCustomer;
    // The customer search, for a choice by number or name.
    ui::Button btnCustomer{*this, "btnCustomer", "..."};
    ui::DBLookupComboBox cboJob;
    ui::DateEdit editCutOffDate{*this, "editCutOffDate"};
    ui::DateEdit editInvoiceDate{*this, "editInvoiceDate"};
    ui::Edit editPeriod{*this, "editPeriod"};
    ui::Edit editYear{*this, "editYear"};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

    bool ManualChosen() const override { return rgpInvoice.ItemIndex() == 0; }
    // OK: a manual invoice closes at once; AutoCreate checks, asks and runs.
    void Accept();

    // After each invoice the run writes; a test fails the run through it.
    std::function<void(int invoicesWritten)> OnInvoiceWritten;

private:
    // The texts of the choices, as they were when the form opened.
    struct Choices {
        int Invoice = 1;
        store::Value Customer, Job;
        std::array<std::string, 4> Texts;
    };
    Choices Current() const;
    void Restore(const Choices& choices);
    void NarrowJobs();
    std::optional<AutoCreateRequest> ReadRequest();

    store::Database& db_;
    Choices opening_;
};

} // namespace corvane::timebilling
