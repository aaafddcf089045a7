#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace corvane::cli {

// "new-company FOLDER [--name N] [--year Y] [--currency C] [--bank B] [--tax NAME:RATE]":
// makes a company folder with all its tables and fills its first rows as the New Company Wizard
// does. The name defaults to "New Company" and the year to the current one; currency and bank
// have no default. An answer the wizard's pages would refuse prints the page's message on err
// and returns 1 before anything is made; a failure while the company is made removes what was
// made. A malformed command line prints the usage and returns 2. args starts after the command.
int NewCompany(const std::vector<std::string>& args, std::ostream& out, std::ostream& err);

} // namespace corvane::cli
