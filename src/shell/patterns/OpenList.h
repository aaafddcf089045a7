#pragma once

#include <string>
#include <string_view>

namespace corvane::ui {
class Application;
class Form;
} // namespace corvane::ui

namespace corvane::shell {

// A registered form, after the user's right to it is checked, made or the one already open and
// not yet shown; null when the right is refused or the program has no such form.
ui::Form* OpenAllowed(ui::Application& app, std::string_view form, std::string_view right);

// A look-up button's list (currencies, accounts, item types ...) opened and shown.
void OpenList(ui::Application& app, std::string_view form, std::string_view right);

// A registered list opened on the rows of one record of another list (a customer's invoices,
// payments, jobs): the list is reset as the main menu resets it and shows only those rows;
// openFilter when the list was in its view of what is still open, else filter.
void OpenListOn(ui::Application& app, std::string_view form, std::string_view right,
                const std::string& filter, const std::string& openFilter);

} // namespace corvane::shell
