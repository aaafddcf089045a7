#pragma once

#include "ui/Button.h"
#include "ui/Form.h"
#include "ui/Label.h"

namespace corvane::shell {

// The product, its version and its copyright.
class TfrmAbout : public ui::Form {
public:
    explicit TfrmAbout(ui::Application& app);

    ui::Label lblProduct{*this, "lblProduct"};
    ui::Label lblVersion{*this, "lblVersion"};
    ui::Label lblCopyright{*this, "lblCopyright"};
    ui::Button btnOK{*this, "btnOK", "OK"};
};

// The window shown while the program starts, until the first company is open.
class TfrmSplash : public ui::Form {
public:
    explicit TfrmSplash(ui::Application& app);

    ui::Label lblProduct{*this, "lblProduct"};
    ui::Label lblLoading{*this, "lblLoading", "Starting..."};
};

} // namespace corvane::shell
