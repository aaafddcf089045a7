#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace corvane::store {
class Database;
}
namespace corvane::ui {
class Application;
class Form;
} // namespace corvane::ui

namespace corvane::shell {

class ListForm;
class TfrmCorvane;

// What a form needs to be made: the running program and the open company.
struct FormContext {
    ui::Application& App;
    store::Database& Db;
    // The main form, for the session's state (the user, the look-up data); null in tests of a
    // form on its own.
    TfrmCorvane* Main = nullptr;
};

// Makes the form (owned by the application) and returns it, not yet shown.
using FormFactory = std::function<ui::Form&(FormContext&)>;

// Prints what a list shows: its report made in its order and filter, then previewed.
using ListPrinter = std::function<void(ListForm&)>;

// The forms the program can open, by component name ("frmUsers"). The main form opens every working
// form through it, so the shell needs to know nothing of the modules above it: each layer adds its
// own forms through a registration function taking the registry, which the program calls at start.
class FormRegistry {
public:
    // A second factory under the same name replaces the first.
    void Register(std::string componentName, FormFactory factory);

    const FormFactory* Find(std::string_view componentName) const;

    std::vector<std::string> FormNames() const;

    // "&GL ,  Accounts..." -> "gl, accounts": the key menu paths are compared by. Captions are
    // compared without accelerator marks, case and the dots of a dialog entry.
    static std::string NormalMenuPath(std::string_view menuPath);

    // The report of a list form, by the list's component name: the shell's lists cannot name
    // their reports, which live in a layer above it, so the list's Print asks here.
    void RegisterListPrinter(std::string listName, ListPrinter printer);
    // Null when the list has no report.
    const ListPrinter* FindListPrinter(std::string_view listName) const;

    // What fills a new sample company ("Create Sample Data"); empty when the program has no
    // generator, and the sample is then only its Company row.
    std::function<void(store::Database&)> SampleDataGenerator;

private:
    std::map<std::string, FormFactory, std::less<>> factories_;
    std::map<std::string, ListPrinter, std::less<>> listPrinters_;
};

} // namespace corvane::shell
