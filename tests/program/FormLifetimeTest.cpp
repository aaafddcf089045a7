#include "program/ProgramForms.h"
#include "shell/main/FormRegistry.h"
#include "shell/patterns/EntryForm.h"
#include "ui/HeadlessApp.h"

#include <map>
#include <optional>
#include <string>
#include <typeindex>
#include <typeinfo>

#include <gtest/gtest.h>

namespace corvane::testing {
namespace {

class FormLifetime : public UiCompanyTest {
protected:
    void SetUp() override {
        UiCompanyTest::SetUp();
        InsertRow("Company", {{"CompanyNo", 1},
                              {"CompanyName", "Lifetime Co"},
                              {"FiscalYear", 2017},
                              {"DefaultPeriodYYYY", 2017},
                              {"DefaultPeriodPP", 3}});
        program::RegisterProgramForms(registry);
    }

    // Every entry form of the program, made through its registered factory.
    std::map<std::string, shell::EntryForm*> MakeEntryForms(ui::Application& program) {
        std::map<std::string, shell::EntryForm*> forms;
        shell::FormContext context{program, db_};
        for (const std::string& name : registry.FormNames()) {
            ui::Form& form = (*registry.Find(name))(context);
            if (auto* entry = dynamic_cast<shell::EntryForm*>(&form))
                forms[name] = entry;
            else
                program.FreeForm(form);
        }
        return forms;
    }

    shell::FormRegistry registry;
};

// A derived form's handlers on its base's cursor must run while the derived form is whole: the
// record's cancel, when the form goes with its record unsaved, sees the form's own type.
TEST_F(FormLifetime, EveryEntryFormDestroyedInEditCancelsItsRecordWhileItIsWhole) {
    std::map<std::string, shell::EntryForm*> forms = MakeEntryForms(app);
    ASSERT_GE(forms.size(), 5u) << "the program's entry forms were not found in its registry";
    for (auto& [name, form] : forms) {
        SCOPED_TRACE(name);
        store::Table& record = form->EntryTable;
        if (!record.Active()) record.Open();
        std::int64_t rows = record.RecordCount();
        std::string table = record.TableName();
        record.Append();
        ASSERT_EQ(record.State(), store::DataSetState::Insert);

        std::type_index whole = typeid(*form);
        std::optional<std::type_index> seenByCancel;
        auto cancel = record.AfterCancel;
        record.AfterCancel = [&, cancel, form = form](store::DataSet& ds) {
            seenByCancel = typeid(*form);
            if (cancel) cancel(ds);
        };
        app.FreeForm(*form);
        ASSERT_TRUE(seenByCancel.has_value()) << "the record was not cancelled";
        EXPECT_EQ(*seenByCancel, whole) << "the cancel ran on a form already partly destroyed";
        EXPECT_EQ(app.FindForm(name), nullptr);
        EXPECT_EQ(CountRows(table), rows) << "the unsaved record was written";
    }
}

// At the end of the program every form still open goes the same way.
TEST_F(FormLifetime, TheProgramsEndCancelsEveryOpenEntryFormsRecordWhileItIsWhole) {
    std::map<std::string, bool> whole;
    std::size_t made = 0;
    {
        HeadlessApp program;
        for (auto& [name, form] : MakeEntryForms(program.app)) {
            store::Table& record = form->EntryTable;
            if (!record.Active()) record.Open();
            record.Append();
            auto cancel = record.AfterCancel;
            record.AfterCancel = [&whole, cancel, form = form, name = name,
                                  type = std::type_index(typeid(*form))](store::DataSet& ds) {
                whole[name] = std::type_index(typeid(*form)) == type;
                if (cancel) cancel(ds);
            };
            ++made;
        }
        ASSERT_GE(made, 5u);
        EXPECT_TRUE(whole.empty());
    }
    EXPECT_EQ(whole.size(), made);
    for (const auto& [name, ok] : whole)
        EXPECT_TRUE(ok) << name;
}

} // namespace
} // namespace corvane::testing
