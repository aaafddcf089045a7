#pragma once

#include <string>

namespace corvane::ui {
class Application;
}

namespace corvane::banking {

// A list's Import command: the import form on the list's table (caption as the form offers it,
// "Customers"), under the user's right "Import". True when rows were imported, so that the list
// reads itself again.
bool ImportInto(ui::Application& app, const std::string& table);

} // namespace corvane::banking
