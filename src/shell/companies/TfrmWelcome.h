#pragma once

#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Label.h"
#include "ui/RadioGroup.h"

#include <string>

namespace corvane::shell {

class CompanyShell;

// The first run on a machine: the sample company comes first, and the user's own company only
// once the sample exists, so that the live data is never the first database of a machine.
// Closes with OK once a company was opened or made, with Cancel when the user gave up.
class TfrmWelcome : public ui::Form {
public:
    static constexpr int kSampleChoice = 0;
    static constexpr int kMyCompanyChoice = 1;

    TfrmWelcome(ui::Application& app, CompanyShell& shell);

    ui::Label lblWelcome{*this, "lblWelcome",
                         "Welcome to Corvane Professional Time Billing. What would you like to "
                         "do first?"};
    ui::RadioGroup optChoice{*this,
                             "optChoice",
                             "",
                             {"Let's look at a &sample company first", "Set up &my own company"}};
    ui::Button btnOK{*this, "btnOK", "OK"};
    ui::Button btnCancel{*this, "btnCancel", "Cancel"};

private:
    void Proceed();
    void OpenSample(const std::string& folder);
    void SetUpOwnCompany(const std::string& sampleFolder);

    CompanyShell& shell_;
};

} // namespace corvane::shell
