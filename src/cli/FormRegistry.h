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

namespace corvane::cli {

// What a form needs to be made: the running program and the open company.
struct FormContext {
    ui::Application& App;
    store::Database& Db;
};

// Makes the form (owned by the application) and returns it, not yet shown.
using FormFactory = std::function<ui::Form&(FormContext&)>;

// The forms a scenario can open, by component name ("frmUsers"), and the menu entries that open
// them, by their path in the main menu ("Security, Users"). Each layer adds its own forms through
// a registration function of its own taking the registry, which the program calls at start.
class FormRegistry {
public:
    // A second factory under the same name replaces the first.
    void Register(std::string componentName, FormFactory factory);
    // The entry at menuPath opens the form registered as componentName. Captions are compared
    // without accelerator marks and ignoring case, so "&GL, &Accounts..." reads "GL, Accounts".
    void RegisterMenu(std::string_view menuPath, std::string componentName);

    const FormFactory* Find(std::string_view componentName) const;
    // The component name the entry opens; empty when no entry has that path.
    std::string FormOfMenu(std::string_view menuPath) const;

    std::vector<std::string> FormNames() const;

    // "&GL ,  Accounts..." -> "gl, accounts": the key menu paths are compared by.
    static std::string NormalMenuPath(std::string_view menuPath);

private:
    std::map<std::string, FormFactory, std::less<>> factories_;
    std::map<std::string, std::string, std::less<>> menus_;
};

// The forms corvane-cli knows: every layer's registration function.
void RegisterProgramForms(FormRegistry& registry);

} // namespace corvane::cli
